// The style guide as tokens: the DTCG document checked against the format's rules, and the
// other forms by what they must declare.
#include <gtest/gtest.h>

#include <string>

#include <simdjson.h>

#include <orvane/handoff/StyleGuide.hpp>
#include <orvane/json/JsonDecoder.hpp>

#include "support/Text.hpp"

namespace orvane::handoff {
namespace {

Ref<Project> guideProject() {
  return JsonDecoder().decode<Ref<Project>>(
      R"({"_id":"P","name":"Shop","icon":{"type":"car"},"created":"2024-01-01T00:00:00Z",)"
      R"("users":[],"colors":[)"
      R"({"_id":"1","name":"Brand/Primary Blue","r":0.2,"g":0.4,"b":1,"a":1},)"
      R"({"_id":"2","name":"Brand / Primary  Blue","r":0.1,"g":0.1,"b":0.1,"a":1},)"
      R"({"_id":"3","name":"Ink 50%","r":1.5,"g":-1,"b":0.5,"a":0.5},)"
      R"({"_id":"4","name":"Brand","r":0,"g":0,"b":0,"a":1},)"
      R"({"_id":"5","name":"$secret.{x}","r":0,"g":0,"b":0,"a":1}],"textStyles":[)"
      R"({"_id":"6","name":"Body","fontFace":"Inter-SemiBold","fontSize":16,"lineHeight":24,)"
      R"("letterSpacing":0.5,"color":{"r":0,"g":0,"b":0,"a":1}},)"
      R"({"_id":"7","name":"Caption","fontFace":"Inter-Italic","fontSize":12}]})");
}

// Walks a DTCG group: every member is a token (with $type and $value) or a group of them.
void checkGroup(simdjson::dom::object group, const std::string& path, int& tokens) {
  for (auto [key, value] : group) {
    std::string name(key);
    SCOPED_TRACE(path + "/" + name);
    EXPECT_EQ(name.find_first_of(".{}"), std::string::npos);
    EXPECT_FALSE(name.starts_with("$"));
    simdjson::dom::object member;
    ASSERT_EQ(value.get(member), simdjson::SUCCESS) << "neither token nor group";
    std::string_view type;
    if (member["$type"].get(type) != simdjson::SUCCESS) {
      checkGroup(member, path + "/" + name, tokens);
      continue;
    }
    ++tokens;
    simdjson::dom::object v;
    ASSERT_EQ(member["$value"].get(v), simdjson::SUCCESS);
    if (type == "color") {
      EXPECT_EQ(std::string_view(v["colorSpace"]), "srgb");
      simdjson::dom::array components = v["components"];
      EXPECT_EQ(components.size(), 3u);
      for (double c : components) EXPECT_TRUE(c >= 0 && c <= 1) << c;
      EXPECT_TRUE(test::fitsShape(std::string_view(v["hex"]), "#xxxxxx"));
      double alpha = 1;
      if (v["alpha"].get(alpha) == simdjson::SUCCESS) {
        EXPECT_LT(alpha, 1);
      }
    } else {
      ASSERT_EQ(type, "typography");
      EXPECT_TRUE(v["fontFamily"].is_string());
      EXPECT_TRUE(v["fontWeight"].is_number());
      for (const char* dimension : {"fontSize", "letterSpacing"}) {
        simdjson::dom::object d;
        if (v[dimension].get(d) != simdjson::SUCCESS) continue;
        EXPECT_TRUE(d["value"].is_number());
        EXPECT_EQ(std::string_view(d["unit"]), "px");
      }
    }
  }
}

TEST(Tokens, DtcgFollowsTheFormatsRules) {
  std::string json = writeTokens(StyleGuide(*guideProject()), TokenFormat::dtcg);
  simdjson::dom::parser parser;
  simdjson::dom::element root;
  ASSERT_EQ(parser.parse(json).get(root), simdjson::SUCCESS) << json;
  int tokens = 0;
  checkGroup(root.get_object(), "", tokens);
  EXPECT_EQ(tokens, 7);
  // Groups by the parts of names; a collision made unique; a name both token and group kept apart.
  auto brand = root["brand"];
  EXPECT_EQ(double(brand["primary-blue"]["$value"]["components"].at(2)), 1);
  EXPECT_EQ(std::string_view(brand["primary-blue-2"]["$value"]["hex"]), "#1a1a1a");
  EXPECT_EQ(std::string_view(root["brand-2"]["$type"]), "color");
  auto ink = root["ink-50"]["$value"];
  EXPECT_EQ(std::string_view(ink["hex"]), "#ff0080");
  EXPECT_EQ(double(ink["alpha"]), 0.5);
  EXPECT_EQ(root["brand"]["primary-blue"]["$value"]["alpha"].error(), simdjson::NO_SUCH_FIELD);
  auto body = root["body"]["$value"];
  EXPECT_EQ(std::string_view(body["fontFamily"]), "Inter");
  EXPECT_EQ(int64_t(body["fontWeight"]), 600);
  EXPECT_EQ(double(body["fontSize"]["value"]), 16);
  EXPECT_EQ(double(body["letterSpacing"]["value"]), 0.5);
  EXPECT_EQ(double(body["lineHeight"]), 1.5);
  auto caption = root["caption"]["$value"];
  EXPECT_EQ(caption["lineHeight"].error(), simdjson::NO_SUCH_FIELD);
  EXPECT_EQ(caption["letterSpacing"].error(), simdjson::NO_SUCH_FIELD);
}

TEST(Tokens, CssSwiftAndKotlinDeclareEveryToken) {
  StyleGuide guide(*guideProject());
  struct Row {
    TokenFormat format;
    std::vector<std::string> declarations;
  } rows[] = {
      {TokenFormat::css,
       {":root {", "  --brand-primary-blue: #3366ff;", "  --brand-primary-blue-2: #1a1a1a;",
        "  --ink-50: rgba(255, 0, 128, 0.5);", "  --brand: #000000;",
        "  --body-font: 600 16px/24px \"Inter\", sans-serif;", "  --body-letter-spacing: 0.5px;",
        "  --body-color: #000000;", "  --caption-font: italic 400 12px \"Inter\", sans-serif;"}},
      {TokenFormat::swift,
       {"extension Color {", "static let brandPrimaryBlue = Color(red: 0.2, green: 0.4, blue: 1)",
        "static let ink50 = Color(red: 1, green: 0, blue: 0.5, opacity: 0.5)", "extension Font {",
        "static let bodyStyle = Font.custom(\"Inter-SemiBold\", size: 16).weight(.semibold)",
        "static let captionStyle = Font.custom(\"Inter-Italic\", size: 12).italic()"}},
      {TokenFormat::kotlin,
       {"val brandPrimaryBlue = Color(0xFF3366FF)", "val ink50 = Color(0x80FF0080)",
        "val body = TextStyle(", "fontWeight = FontWeight(600)", "fontSize = 16.sp",
        "lineHeight = 24.sp", "letterSpacing = 0.5.sp", "fontStyle = FontStyle.Italic"}},
  };
  for (const auto& row : rows) {
    std::string text = writeTokens(guide, row.format);
    for (const auto& d : row.declarations) {
      EXPECT_NE(text.find(d), std::string::npos) << d << " missing in\n" << text;
    }
  }
}

}  // namespace
}  // namespace orvane::handoff
