// What extension options and integrations read and write is in the corpus; here, what only code
// sees: each kind's payload through its accessor.
#include <orvane/integrations/Extension.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using Option = Extension::Option;
using Kind = Option::Kind;

namespace {

Ref<Option> option(std::string_view json) {
  return decodeJson<Ref<Option>>(json);
}

}  // namespace

TEST(ExtensionOption, EachKindReadsItsDefault) {
  auto o = option(R"({"id":"s","name":"S","type":"switch","default":true})");
  ASSERT_TRUE(o->kind());
  EXPECT_EQ(o->kind()->key(), Kind::Key::switch_);
  EXPECT_TRUE(o->kind()->asSwitch()->defaultValue);

  o = option(R"({"id":"t","name":"T","type":"text","default":"hello","options":7})");
  EXPECT_EQ(o->kind()->asText()->defaultValue, "hello");

  o = option(R"({"id":"p","name":"P","type":"picker","default":"b",)"
             R"("options":[{"name":"A","value":"a"},{"name":"B","value":"b"}]})");
  const auto* picker = o->kind()->asPicker();
  ASSERT_TRUE(picker);
  EXPECT_EQ(picker->options, (std::vector<Option::PickerOption>{{"A", "a"}, {"B", "b"}}));
  EXPECT_EQ(picker->defaultOption, (Option::PickerOption{"B", "b"}));
}

