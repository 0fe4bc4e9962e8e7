#include <string>

#include <gtest/gtest.h>

#include <orvane/orvane.hpp>

// Users compare the numbers in preprocessor conditions, so they must be plain integers there.
#if !(ORVANE_VERSION_MAJOR >= 0 && ORVANE_VERSION_MINOR >= 0 && ORVANE_VERSION_PATCH >= 0)
#error "the version macros are not integers"
#endif

// The tool's --version case checks the string against the project's version; the numbers must
// spell the same version.
TEST(Version, NumbersSpellTheString) {
  EXPECT_EQ(std::to_string(ORVANE_VERSION_MAJOR) + "." + std::to_string(ORVANE_VERSION_MINOR) +
                "." + std::to_string(ORVANE_VERSION_PATCH),
            ORVANE_VERSION_STRING);
}
