#include <orvane/integrations/Extension.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;
using Option = Extension::Option;
using Kind = Option::Kind;

namespace {

Ref<Option> option(std::string_view json) {
  return decodeJson<Ref<Option>>(json);
}

}  // namespace

TEST(ExtensionManifest, ExtensionIsAWeakReferenceThatTheLoaderSets) {
  auto manifest = decodeJson<Ref<Extension::Manifest>>(
      R"({"name":"n","version":"1","moduleURL":"https://x/m.js"})");
  auto extension = Extension::make({.identifier = Identifier("e1"),
                                    .name = "n",
                                    .description = std::nullopt,
                                    .manifestURL = Url("https://x/m.json"),
                                    .isDefault = true});
  manifest->setExtension(extension);
  EXPECT_EQ(manifest->extension(), extension);
  extension.reset();
  EXPECT_FALSE(manifest->extension());
}

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

TEST(ExtensionOption, PickerDefaultIsTheFirstOptionWithThatValue) {
  auto o = option(R"({"id":"p","name":"P","type":"picker","default":"v",)"
                  R"("options":[{"name":"x","value":"w"},{"name":"first","value":"v"},)"
                  R"({"name":"second","value":"v"}]})");
  EXPECT_EQ(o->kind()->asPicker()->defaultOption.name, "first");
  // Values compare under canonical equivalence: a precomposed e matches e + combining acute.
  o = option(R"({"id":"p","name":"P","type":"picker","default":"caf\u00e9",)"
             R"("options":[{"name":"n","value":"cafe\u0301"}]})");
  EXPECT_EQ(o->kind()->asPicker()->defaultOption.name, "n");
}

TEST(ExtensionOption, PickerNeedsItsOptions) {
  auto e = decodeError<Ref<Option>>(R"({"id":"p","name":"P","type":"picker","default":"b"})");
  EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
  EXPECT_EQ(e.key(), "options");
}

TEST(ExtensionOption, UnknownTypeReadsNothingMore) {
  for (const char* type : {R"("Switch")", "1"}) {
    auto o = option(std::string(R"({"id":"i","name":"n","type":)") + type +
                    R"(,"default":{},"options":"nonsense"})");
    EXPECT_EQ(o->identifier(), "i");
    EXPECT_FALSE(o->kind()) << type;
  }
  EXPECT_FALSE(option(R"({"id":"i","name":"n"})")->kind());
}

TEST(ExtensionOption, DefaultOfTheWrongKindOrMissing) {
  const std::pair<const char*, ErrorKind> cases[] = {
      {R"({"id":"i","name":"n","type":"text","default":3})", ErrorKind::typeMismatch},
      {R"({"id":"i","name":"n","type":"text"})", ErrorKind::keyNotFound},
  };
  for (auto [json, kind] : cases) EXPECT_EQ(decodeError<Ref<Option>>(json).kind(), kind) << json;
}
