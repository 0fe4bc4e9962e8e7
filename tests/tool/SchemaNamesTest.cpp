// A schema names its records and enumerations: the tool by its TYPE names, the library by the
// types' qualified names. They must be the same, so that schemas written either way name the
// same definitions.
#include <gtest/gtest.h>

#include "../tools/orvane/Types.hpp"

TEST(SchemaNames, EveryTypeNameIsTheQualifiedNameOfItsType) {
  for (const auto& entry : orvane::tool::registeredTypes()) {
    EXPECT_EQ(orvane::schemaTypeName(*entry.type), entry.name);
  }
}
