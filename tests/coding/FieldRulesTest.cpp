// The coding rules that every field statement promises, checked once over every record's
// statements: for each listed key of a complete sample document, what an absent key, a null and
// a value of another kind do to decoding, and whether the key is written back. Each record's
// own tests keep only what its statements cannot say.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/json/JsonDecoder.hpp>
#include <orvane/json/JsonEncoder.hpp>
#include <orvane/orvane.hpp>

namespace orvane {
namespace {

struct Rule {
  std::string_view field;
  std::string_view key;
  std::string_view read;
  std::string_view write;
};

#define RULE_KEY_required(key) key
#define RULE_KEY_optional(key) key
#define RULE_KEY_tolerant(key) key
#define RULE_KEY_orEmpty(key) key
#define RULE_KEY_custom(key) key
#define RULE_KEY_localOnImport(key) key
#define RULE_KEY_none(key) ""
#define RULE_KEY_payload(key) ""
#define RULE(name, Name, Type, key, read, write, param, access) \
  Rule{#name, RULE_KEY_##read(key), #read, #write},
// A partial reads its record's keys and is never written.
#define PARTIAL_RULE(name, Name, Type, read, access) Rule{#name, Keys::name, #read, "never"},
// A partial with its rules, and the record whose sample document it reads.
#define PARTIAL(sample, Record, LIST)                                          \
  {sample, [] {                                                                \
     using Keys = Record::CodingKeys;                                          \
     return std::vector<Rule>{LIST(PARTIAL_RULE)};                             \
   }(),                                                                        \
   decodeOnly<Record::Partial>}

// A member of a sample document: its key and its value's JSON text.
struct Member {
  std::string_view key;
  std::string_view value;
};

struct Sample {
  std::string type;
  std::vector<Rule> rules;
  std::vector<Member> members;  // every listed key that the record reads, with a valid value
  std::string (*decodeAndEncode)(const std::string& json, EncodingForm form);
};

template <class R>
std::string roundTrip(const std::string& json, EncodingForm form) {
  JsonEncoderOptions options;
  options.form = form;
  return JsonEncoder(options).encode(JsonDecoder().decode<Ref<R>>(json));
}

// For records and partials that are read but never written: only their document form.
template <class T>
std::string decodeOnly(const std::string& json, EncodingForm form) {
  auto value = JsonDecoder().decode<T>(json);
  if (form == EncodingForm::records) return "{}";
  JsonEncoderOptions options;
  options.form = form;
  return JsonEncoder(options).encode(value);
}

std::string objectText(const std::vector<Member>& members, std::string_view key,
                       std::string_view replacement, bool drop) {
  std::string out = "{";
  for (const auto& m : members) {
    if (m.key == key && drop) continue;
    if (out.size() > 1) out += ',';
    out += '"';
    out += m.key;
    out += "\":";
    out += m.key == key ? replacement : m.value;
  }
  return out + "}";
}

// A value of another kind than `value`, whatever that is.
std::string_view otherKind(std::string_view value) { return value[0] == '"' ? "7" : "\"x\""; }

// Whether the object `json` has `key` among its own members.
struct HasKey {
  static inline thread_local std::string_view wanted;
  static HasKey decode(const Decoder& d) { return {d.container().contains(wanted)}; }
  bool has;
};
bool writes(const std::string& json, std::string_view key) {
  HasKey::wanted = key;
  return JsonDecoder().decode<HasKey>(json).has;
}

constexpr std::string_view kColor = R"({"r":0.1,"g":0.2,"b":0.3,"a":1})";
constexpr std::string_view kUser = R"({"_id":"u1","email":"a@example.com"})";
constexpr std::string_view kSnapshot = R"({"_id":"s1","width":375,"height":812})";
constexpr std::string_view kVersion =
    R"({"_id":"v1","snapshot":{"_id":"s1","width":375,"height":812},"created":"2024-05-01T09:00:00Z"})";
constexpr std::string_view kTextStyle =
    R"({"fontFace":"Inter","fontSize":17,"lineHeight":22,"letterSpacing":0,"color":{"r":0,"g":0,"b":0,"a":1},"textAlign":"left"})";

std::vector<Sample> recordSamples() {
  return {
      {"Color", {ORVANE_COLOR_FIELDS(RULE)},
       {{"r", "0.1"}, {"g", "0.2"}, {"b", "0.3"}, {"a", "1"}}, roundTrip<Color>},
      {"Shadow", {ORVANE_SHADOW_FIELDS(RULE)},
       {{"type", "\"outer\""}, {"offsetX", "1"}, {"offsetY", "2"}, {"blurRadius", "3"},
        {"spread", "4"}, {"color", kColor}},
       roundTrip<Shadow>},
      {"Blur", {ORVANE_BLUR_FIELDS(RULE)}, {{"type", "\"gaussian\""}, {"radius", "4"}},
       roundTrip<Blur>},
      {"TextStyle", {ORVANE_TEXT_STYLE_FIELDS(RULE)},
       {{"fontFace", "\"Inter\""}, {"fontSize", "17"}, {"lineHeight", "22"},
        {"letterSpacing", "0"}, {"color", kColor}, {"textAlign", "\"left\""}},
       roundTrip<TextStyle>},
      {"RangedTextStyle", {ORVANE_RANGED_TEXT_STYLE_FIELDS(RULE)},
       {{"range", R"({"location":0,"length":4})"}, {"style", kTextStyle}},
       roundTrip<RangedTextStyle>},
      {"Gradient.Stop", {ORVANE_GRADIENT_STOP_FIELDS(RULE)},
       {{"position", "0.5"}, {"color", kColor}}, roundTrip<Gradient::Stop>},
      {"Gradient", {ORVANE_GRADIENT_FIELDS(RULE)},
       {{"type", "\"linear\""}, {"from", R"({"x":0,"y":0})"}, {"to", R"({"x":1,"y":1})"},
        {"angle", "0"}, {"scale", "1"}, {"colorStops", "[]"}},
       roundTrip<Gradient>},
      {"Border", {ORVANE_BORDER_FIELDS(RULE)}, {{"position", "\"inside\""}, {"thickness", "2"}},
       roundTrip<Border>},
      {"Grid", {ORVANE_GRID_FIELDS(RULE)},
       {{"horizontalOffset", "16"},
        {"vertical",
         R"({"columnWidth":72,"numberOfCols":4,"gutterWidth":16,"guttersOnOutside":true})"},
        {"horizontal", R"({"rowHeight":8,"gutterHeight":8})"}},
       roundTrip<Grid>},
      {"Asset.Content", {ORVANE_ASSET_CONTENT_FIELDS(RULE)},
       {{"url", "\"https://cdn.example.com/a.svg\""}, {"density", "\"2x\""}, {"format", "\"svg\""}},
       roundTrip<Asset::Content>},
      {"Asset", {ORVANE_ASSET_FIELDS(RULE)},
       {{"_id", "\"a1\""}, {"displayName", "\"cart\""}, {"layerName", "\"Cart\""},
        {"layerId", "\"l1\""}, {"isBitmap", "false"}, {"contents", "[]"}},
       roundTrip<Asset>},
      {"Link", {ORVANE_LINK_FIELDS(RULE)},
       {{"sourceId", "\"l1\""}, {"rect", R"({"x":0,"y":0,"width":10,"height":10})"},
        {"destination", R"({"type":"back"})"}},
       roundTrip<Link>},
      {"Snapshot", {ORVANE_SNAPSHOT_FIELDS(RULE)},
       {{"_id", "\"s1\""}, {"width", "375"}, {"height", "812"},
        {"url", "\"https://cdn.example.com/s.png\""}, {"density", "\"3x\""},
        {"source", "\"sketch\""}, {"componentNames", "[\"Button\"]"}, {"backgroundColor", kColor},
        {"grid", R"({"horizontalOffset":16})"}, {"assets", "[]"}, {"layers", "[]"},
        {"links", "[]"}},
       roundTrip<Snapshot>},
      {"Layer", {ORVANE_LAYER_FIELDS(RULE)},
       {{"_id", "\"l1\""}, {"name", "\"Pay\""}, {"sourceId", "\"12:40\""}, {"type", "\"shape\""},
        {"rect", R"({"x":0,"y":0,"width":10,"height":10})"}, {"rotation", "90"},
        {"borderRadius", "4"}, {"opacity", "1"}, {"blendMode", "\"multiply\""},
        {"blur", R"({"type":"gaussian","radius":2})"}, {"exportable", "true"}, {"fills", "[]"},
        {"borders", "[]"}, {"shadows", "[]"}},
       roundTrip<Layer>},
      {"Commit", {ORVANE_COMMIT_FIELDS(RULE)},
       {{"author", kUser}, {"message", "\"Bigger\""}, {"color", kColor}}, roundTrip<Commit>},
      {"Version", {ORVANE_VERSION_FIELDS(RULE)},
       {{"_id", "\"v1\""}, {"commit", R"({"message":"m"})"}, {"creator", kUser},
        {"snapshot", kSnapshot}, {"created", "\"2024-05-01T09:00:00Z\""},
        {"fullSnapshotUrl", "\"https://cdn.example.com/v.png\""}},
       roundTrip<Version>},
      {"Comment", {ORVANE_COMMENT_FIELDS(RULE)},
       {{"_id", "\"c1\""}, {"note", "\"Bigger?\""}, {"author", kUser},
        {"created", "\"2024-05-01T12:30:00Z\""}, {"updated", "\"2024-05-01T12:31:00Z\""}},
       roundTrip<Comment>},
      {"Dot", {ORVANE_DOT_FIELDS(RULE)},
       {{"_id", "\"d1\""}, {"status", "\"open\""}, {"name", "\"Header\""}, {"creator", kUser},
        {"x", "10"}, {"y", "20"}, {"color", kColor}, {"comments", "[]"}},
       roundTrip<Dot>},
      {"Section", {ORVANE_SECTION_FIELDS(RULE)},
       {{"_id", "\"sec\""}, {"name", "\"Discover\""}, {"description", "\"d\""},
        {"screens", "[\"S1\"]"}},
       roundTrip<Section>},
      {"VersionCollection", {ORVANE_VERSION_COLLECTION_FIELDS(RULE)},
       {{"_id", "\"S1\""}, {"name", "\"Home\""}, {"description", "\"d\""},
        {"latestVersion", kVersion}, {"sourceId", "\"src\""}, {"tags", "[\"draft\"]"},
        {"versions", "[]"}, {"index", "7"}},
       roundTrip<VersionCollection>},
      {"User", {ORVANE_USER_FIELDS(RULE)},
       {{"_id", "\"u1\""}, {"email", "\"a@example.com\""}, {"username", "\"ana\""},
        {"emotar", "\"grin\""}, {"avatar", "\"https://cdn.example.com/a.png\""},
        {"token", "\"t\""}, {"status", "\"verified\""}, {"paymentPlan", "\"p1\""},
        {"notificationLastReadTime", "\"2024-05-01T09:00:00Z\""},
        {"subscriptionStatus", "\"active\""}},
       roundTrip<User>},
      {"ProjectUser", {ORVANE_PROJECT_USER_FIELDS(RULE)},
       {{"user", kUser}, {"role", "\"owner\""}, {"tags", "[\"ios\"]"}}, roundTrip<ProjectUser>},
      {"Plan", {ORVANE_PLAN_FIELDS(RULE)},
       {{"_id", "\"p1\""}, {"name", "\"Team\""}, {"status", "\"active\""},
        {"period", "\"monthly\""}, {"price", "12"}, {"multi", "true"}, {"limit", "5"},
        {"allowedVersionCount", "10"}, {"allowedComponentCount", "20"}},
       roundTrip<Plan>},
      {"Extension", {ORVANE_EXTENSION_FIELDS(RULE)},
       {{"_id", "\"e1\""}, {"name", "\"Colors\""}, {"description", "\"d\""},
        {"manifestURL", "\"https://example.com/m.json\""}, {"default", "false"}},
       roundTrip<Extension>},
      {"Grid.Vertical", {ORVANE_GRID_VERTICAL_FIELDS(RULE)},
       {{"columnWidth", "72"}, {"numberOfCols", "4"}, {"gutterWidth", "16"},
        {"guttersOnOutside", "true"}},
       roundTrip<Grid::Vertical>},
      {"Grid.Horizontal", {ORVANE_GRID_HORIZONTAL_FIELDS(RULE)},
       {{"rowHeight", "8"}, {"gutterHeight", "8"}}, roundTrip<Grid::Horizontal>},
      {"ProjectColor", {ORVANE_PROJECT_COLOR_FIELDS(RULE)},
       {{"_id", "\"pc\""}, {"name", "\"Ink\""}, {"r", "0.1"}, {"g", "0.2"}, {"b", "0.3"},
        {"a", "1"}},
       roundTrip<ProjectColor>},
      {"ProjectTextStyle", {ORVANE_PROJECT_TEXT_STYLE_FIELDS(RULE)},
       {{"_id", "\"pt\""}, {"name", "\"Body\""}, {"sourceId", "\"src\""},
        {"fontFace", "\"Inter\""}, {"fontSize", "17"}, {"color", kColor}},
       roundTrip<ProjectTextStyle>},
      {"Screen", {ORVANE_VERSION_COLLECTION_FIELDS(RULE) ORVANE_SCREEN_FIELDS(RULE)},
       {{"_id", "\"S1\""}, {"name", "\"Home\""}, {"description", "\"d\""},
        {"latestVersion", kVersion}, {"sourceId", "\"src\""}, {"tags", "[\"draft\"]"},
        {"versions", "[]"}, {"index", "7"}, {"dots", "[]"}},
       roundTrip<Screen>},
      {"ComponentSection", {ORVANE_COMPONENT_SECTION_FIELDS(RULE)},
       {{"_id", "\"cs\""}, {"name", "\"Buttons\""}, {"description", "\"d\""},
        {"componentSections", "[]"}, {"components", "[]"}},
       roundTrip<ComponentSection>},
      {"Project", {ORVANE_PROJECT_FIELDS(RULE)},
       {{"_id", "\"P1\""}, {"status", "\"active\""}, {"name", "\"Shop\""},
        {"description", "\"d\""}, {"icon", R"({"type":"rocket"})"},
        {"created", "\"2024-05-01T09:00:00Z\""}, {"updated", "\"2024-05-02T09:00:00Z\""},
        {"type", "\"ios\""}, {"density", "\"2x\""}, {"public", "true"}, {"sections", "[]"},
        {"screens", "[]"}, {"colors", "[]"}, {"textStyles", "[]"}, {"componentSections", "[]"},
        {"users", "[]"}, {"thumbnail", "\"https://cdn.example.com/t.png\""},
        {"integration", "{}"}},
       roundTrip<Project>},
      {"Organization", {ORVANE_ORGANIZATION_FIELDS(RULE)},
       {{"_id", "\"o1\""}, {"status", "\"active\""}, {"name", "\"Acme\""},
        {"logo", "\"https://cdn.example.com/o.png\""}, {"paymentPlan", "\"p1\""},
        {"subscriptionStatus", "\"past_due\""}},
       roundTrip<Organization>},
      {"Integration", {ORVANE_INTEGRATION_FIELDS(RULE)}, {{"slacks", "[]"}},
       roundTrip<Integration>},
      {"Integration.Slack", {ORVANE_INTEGRATION_SLACK_FIELDS(RULE)},
       {{"_id", "\"k1\""},
        {"incomingWebHook",
         R"({"channel":"#design","configurationURL":"https://example.com/c"})"},
        {"scope", "\"chat\""}},
       roundTrip<Integration::Slack>},
      {"Extension.Author", {ORVANE_EXTENSION_AUTHOR_FIELDS(RULE)},
       {{"name", "\"Ana\""}, {"email", "\"a@example.com\""},
        {"url", "\"https://example.com\""}},
       roundTrip<Extension::Author>},
      {"Extension.Manifest", {ORVANE_EXTENSION_MANIFEST_FIELDS(RULE)},
       {{"name", "\"Colors\""}, {"description", "\"d\""}, {"version", "\"1.0.0\""},
        {"author", R"({"name":"Ana"})"}, {"repository", "\"https://example.com/r\""},
        {"options", "[]"}, {"moduleURL", "\"https://example.com/m.js\""}},
       decodeOnly<Ref<Extension::Manifest>>},
      {"Extension.Option", {ORVANE_EXTENSION_OPTION_FIELDS(RULE)},
       {{"id", "\"o1\""}, {"name", "\"Round\""}, {"type", "\"switch\""},
        {"default", "true"}},
       decodeOnly<Ref<Extension::Option>>},
  };
}

// Each partial with the sample of the record whose keys it reads.
std::vector<Sample> samples() {
  std::vector<Sample> all = recordSamples();
  const struct {
    std::string_view record;  // whose sample document it reads
    std::vector<Rule> rules;
    std::string (*decode)(const std::string& json, EncodingForm form);
  } partials[] = {
      PARTIAL("ProjectColor", ProjectColor, ORVANE_PROJECT_COLOR_PARTIAL_FIELDS),
      PARTIAL("ProjectTextStyle", ProjectTextStyle, ORVANE_PROJECT_TEXT_STYLE_PARTIAL_FIELDS),
      PARTIAL("Project", Project, ORVANE_PROJECT_PARTIAL_FIELDS),
      PARTIAL("Section", Section, ORVANE_SECTION_PARTIAL_FIELDS),
      PARTIAL("ComponentSection", ComponentSection, ORVANE_SECTION_PARTIAL_FIELDS),
      PARTIAL("Screen", Screen, ORVANE_VERSION_COLLECTION_PARTIAL_FIELDS),
      PARTIAL("VersionCollection", Component, ORVANE_VERSION_COLLECTION_PARTIAL_FIELDS),
      PARTIAL("Dot", Dot, ORVANE_DOT_PARTIAL_FIELDS),
      PARTIAL("Comment", Comment, ORVANE_COMMENT_PARTIAL_FIELDS),
      PARTIAL("User", User, ORVANE_USER_PARTIAL_FIELDS),
      PARTIAL("ProjectUser", ProjectUser, ORVANE_PROJECT_USER_PARTIAL_FIELDS),
      PARTIAL("Organization", Organization, ORVANE_ORGANIZATION_PARTIAL_FIELDS),
  };
  for (const auto& partial : partials) {
    auto record = std::find_if(all.begin(), all.end(),
                               [&](const Sample& s) { return s.type == partial.record; });
    all.push_back({"the partial reading " + std::string(partial.record) + "'s sample",
                   partial.rules, record->members, partial.decode});
  }
  return all;
}

TEST(FieldRules, EveryListedKeyReadsAndWritesAsItsStatementSays) {
  for (const auto& sample : samples()) {
    const std::string complete = objectText(sample.members, {}, {}, false);
    std::string written;
    ASSERT_NO_THROW(written = sample.decodeAndEncode(complete, EncodingForm::records))
        << sample.type << complete;
    for (const auto& rule : sample.rules) {
      if (rule.key.empty() || rule.read == "custom" || rule.read == "localOnImport") continue;
      SCOPED_TRACE(std::string(sample.type) + "." + std::string(rule.field) + " \"" +
                   std::string(rule.key) + "\" (" + std::string(rule.read) + ", " +
                   std::string(rule.write) + ")");
      auto member = std::find_if(sample.members.begin(), sample.members.end(),
                                 [&](const Member& m) { return m.key == rule.key; });
      ASSERT_NE(member, sample.members.end()) << "the sample lacks the key";

      // Written back from the complete document unless never written.
      const bool ownWrite = rule.write == "custom";
      if (!ownWrite) {
        EXPECT_EQ(writes(written, rule.key), rule.write != "never");
      }

      const std::string absent = objectText(sample.members, rule.key, {}, true);
      const std::string null = objectText(sample.members, rule.key, "null", false);
      const std::string other =
          objectText(sample.members, rule.key, otherKind(member->value), false);
      auto failure = [&](const std::string& json) -> std::optional<DecodingError::Kind> {
        try {
          sample.decodeAndEncode(json, EncodingForm::records);
          return std::nullopt;
        } catch (const DecodingError& e) {
          return e.kind();
        }
      };
      if (rule.read == "required") {
        EXPECT_EQ(failure(absent), DecodingError::Kind::keyNotFound);
        EXPECT_EQ(failure(null), DecodingError::Kind::valueNotFound);
        EXPECT_EQ(failure(other), DecodingError::Kind::typeMismatch);
        continue;
      }
      // Every other read lets the document decode without the value.
      EXPECT_EQ(failure(absent), std::nullopt);
      EXPECT_EQ(failure(null), std::nullopt);
      EXPECT_EQ(failure(other), rule.read == "tolerant"
                                    ? std::nullopt
                                    : std::optional(DecodingError::Kind::typeMismatch));
      // A field without a value is left out when written only when present; one read with
      // the empty value as default is written with it.
      const std::string backFromAbsent = sample.decodeAndEncode(absent, EncodingForm::records);
      if (!ownWrite) {
        EXPECT_EQ(writes(backFromAbsent, rule.key),
                  rule.write == "always" || rule.write == "unlessLocal");
      }
    }
  }
}

// The document form writes what decoding reads, from the same statements: from a complete
// document every key read, and from one without the key exactly the keys read with a default;
// and writing what it wrote gives the same text.
TEST(FieldRules, TheDocumentFormWritesEveryKeyThatIsRead) {
  for (const auto& sample : samples()) {
    const std::string complete = objectText(sample.members, {}, {}, false);
    std::string document;
    ASSERT_NO_THROW(document = sample.decodeAndEncode(complete, EncodingForm::document))
        << sample.type;
    EXPECT_EQ(sample.decodeAndEncode(document, EncodingForm::document), document) << sample.type;
    for (const auto& rule : sample.rules) {
      if (rule.key.empty()) continue;  // never read, or read from other keys (a payload)
      SCOPED_TRACE(std::string(sample.type) + "." + std::string(rule.field) + " \"" +
                   std::string(rule.key) + "\" (" + std::string(rule.read) + ")");
      bool inSample = std::any_of(sample.members.begin(), sample.members.end(),
                                  [&](const Member& m) { return m.key == rule.key; });
      if (!inSample) {
        EXPECT_EQ(rule.read, "custom") << "the sample lacks the key";
        continue;
      }
      EXPECT_TRUE(writes(document, rule.key)) << document;
      if (rule.read == "required" || rule.read == "custom" || rule.read == "localOnImport")
        continue;
      const std::string absent = objectText(sample.members, rule.key, {}, true);
      EXPECT_EQ(writes(sample.decodeAndEncode(absent, EncodingForm::document), rule.key),
                rule.read == "orEmpty");
    }
  }
}

}  // namespace
}  // namespace orvane
