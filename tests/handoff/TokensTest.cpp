// The style guide as tokens: the DTCG document checked against the format's rules for groups,
// names, colors and typography, and one name for each token in every format.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include <simdjson.h>

#include <orvane/handoff/StyleGuide.hpp>
#include <orvane/json/JsonDecoder.hpp>

#include "support/Text.hpp"

namespace orvane::handoff {
namespace {

Ref<Project> guideProject(const std::string& colors, const std::string& textStyles) {
  return JsonDecoder().decode<Ref<Project>>(
      R"({"_id":"P","name":"Shop","icon":{"type":"car"},"created":"2024-01-01T00:00:00Z",)"
      R"("users":[],"colors":[)" +
      colors + R"(],"textStyles":[)" + textStyles + "]}");
}

std::string color(const std::string& id, const std::string& name, const std::string& rgba) {
  return R"({"_id":")" + id + R"(","name":")" + name + R"(",)" + rgba + "}";
}

// Names the format reserves or forbids, colors and typography values as the 2025.10 format
// defines them: the required members, each of its kind and range, and nothing else.
class DtcgChecker {
 public:
  std::vector<std::string> problems;
  std::set<std::string> tokens;  // each token's path, joined by `.`

  void group(simdjson::dom::object object, const std::string& path) {
    for (auto [key, value] : object) {
      std::string name(key);
      std::string at = path.empty() ? name : path + "." + name;
      if (name == "$root") {
        token(value, path);
        continue;
      }
      if (name.starts_with("$")) {
        problem(at, "a member name that starts with $");
        continue;
      }
      if (name.find_first_of(".{}") != std::string::npos) problem(at, "a name with . { or }");
      simdjson::dom::object member;
      if (value.get(member) != simdjson::SUCCESS) {
        problem(at, "neither a token nor a group");
        continue;
      }
      if (member["$value"].error() == simdjson::SUCCESS) {
        token(value, at);
      } else {
        group(member, at);
      }
    }
  }

 private:
  void problem(const std::string& at, const std::string& what) { problems.push_back(at + ": " + what); }

  static bool isNumber(simdjson::dom::element e) { return e.is_int64() || e.is_uint64() || e.is_double(); }

  static double numberOf(simdjson::dom::element e) {
    if (e.is_int64()) return static_cast<double>(int64_t(e));
    if (e.is_uint64()) return static_cast<double>(uint64_t(e));
    return double(e);
  }

  // Exactly these members, each present.
  void members(simdjson::dom::object o, const std::set<std::string>& required,
               const std::set<std::string>& optional, const std::string& at) {
    std::set<std::string> seen;
    for (auto [key, value] : o) {
      std::string k(key);
      if (!required.count(k) && !optional.count(k)) problem(at, "an unknown member " + k);
      seen.insert(k);
    }
    for (const auto& k : required) {
      if (!seen.count(k)) problem(at, "no " + k);
    }
  }

  void dimension(simdjson::dom::element e, const std::string& at) {
    simdjson::dom::object d;
    if (e.get(d) != simdjson::SUCCESS) return problem(at, "a dimension that is not an object");
    members(d, {"value", "unit"}, {}, at);
    simdjson::dom::element value;
    if (d["value"].get(value) == simdjson::SUCCESS && !isNumber(value)) problem(at, "a value that is not a number");
    std::string_view unit;
    if (d["unit"].get(unit) != simdjson::SUCCESS || (unit != "px" && unit != "rem")) {
      problem(at, "a unit other than px and rem");
    }
  }

  void token(simdjson::dom::element element, const std::string& at) {
    tokens.insert(at);
    simdjson::dom::object t;
    if (element.get(t) != simdjson::SUCCESS) return problem(at, "a token that is not an object");
    members(t, {"$type", "$value"}, {"$description", "$extensions", "$deprecated"}, at);
    std::string_view type;
    simdjson::dom::object v;
    if (t["$type"].get(type) != simdjson::SUCCESS) return problem(at, "no $type");
    if (t["$value"].get(v) != simdjson::SUCCESS) return problem(at, "a $value that is not an object");
    if (type == "color") {
      members(v, {"colorSpace", "components"}, {"alpha", "hex"}, at);
      std::string_view space;
      if (v["colorSpace"].get(space) != simdjson::SUCCESS || space != "srgb") problem(at, "not srgb");
      simdjson::dom::array components;
      if (v["components"].get(components) != simdjson::SUCCESS || components.size() != 3) {
        problem(at, "not three components");
      } else {
        for (auto c : components) {
          if (!isNumber(c) || numberOf(c) < 0 || numberOf(c) > 1) problem(at, "a component beyond 0 to 1");
        }
      }
      simdjson::dom::element alpha;
      if (v["alpha"].get(alpha) == simdjson::SUCCESS &&
          (!isNumber(alpha) || numberOf(alpha) < 0 || numberOf(alpha) > 1)) {
        problem(at, "an alpha beyond 0 to 1");
      }
      std::string_view hex;
      if (v["hex"].error() == simdjson::SUCCESS &&
          (v["hex"].get(hex) != simdjson::SUCCESS || !test::fitsShape(hex, "#xxxxxx"))) {
        problem(at, "a hex that is not #rrggbb");
      }
    } else if (type == "typography") {
      members(v, {"fontFamily", "fontSize", "fontWeight", "letterSpacing", "lineHeight"}, {}, at);
      simdjson::dom::element family, weight, size, spacing, height;
      if (v["fontFamily"].get(family) == simdjson::SUCCESS && !family.is_string() &&
          !family.is_array()) {
        problem(at, "a font family that is neither string nor list");
      }
      if (v["fontWeight"].get(weight) == simdjson::SUCCESS &&
          (!isNumber(weight) || numberOf(weight) < 1 || numberOf(weight) > 1000)) {
        problem(at, "a font weight beyond 1 to 1000");
      }
      if (v["fontSize"].get(size) == simdjson::SUCCESS) dimension(size, at + " fontSize");
      if (v["letterSpacing"].get(spacing) == simdjson::SUCCESS) {
        dimension(spacing, at + " letterSpacing");
      }
      if (v["lineHeight"].get(height) == simdjson::SUCCESS && !isNumber(height)) {
        problem(at, "a line height that is not a number");
      }
    } else {
      problem(at, "a $type this guide never writes: " + std::string(type));
    }
  }
};

const std::string kBlack = R"("r":0,"g":0,"b":0,"a":1)";

Ref<Project> mixedGuide() {
  return guideProject(
      color("1", "Brand/Primary Blue", R"("r":0.2,"g":0.4,"b":1,"a":1)") + "," +
          color("2", "Brand / Primary  Blue", R"("r":0.1,"g":0.1,"b":0.1,"a":1)") + "," +
          color("3", "Ink 50%", R"("r":1.5,"g":-1,"b":0.5,"a":0.5)") + "," +
          color("4", "Brand", kBlack) + "," + color("5", "$secret.{x}", kBlack),
      R"({"_id":"6","name":"Body","fontFace":"Inter-SemiBold","fontSize":16,"lineHeight":24,)"
      R"("letterSpacing":0.5,"color":{"r":0,"g":0,"b":0,"a":1}},)"
      R"({"_id":"7","name":"Caption","fontFace":"Inter-Italic","fontSize":12},)"
      R"({"_id":"8","name":"Zero","fontFace":"Inter","fontSize":0,"lineHeight":10})");
}

TEST(Tokens, DtcgFollowsTheFormatsRules) {
  for (bool pretty : {false, true}) {
    std::string json =
        writeTokens(StyleGuide(*mixedGuide()), TokenFormat::dtcg, {.density = Density::_1x, .pretty = pretty});
    simdjson::dom::parser parser;
    simdjson::dom::element root;
    ASSERT_EQ(parser.parse(json).get(root), simdjson::SUCCESS) << json;
    DtcgChecker checker;
    checker.group(root.get_object(), "");
    EXPECT_TRUE(checker.problems.empty()) << ::testing::PrintToString(checker.problems) << json;
    // Five colors, three text styles and the one text style color.
    EXPECT_EQ(checker.tokens, (std::set<std::string>{"brand", "brand.primary-blue", "brand.primary-blue-2",
                                                     "ink-50", "secret-x", "body", "body-color",
                                                     "caption", "zero"}));
    auto ink = root["ink-50"]["$value"];
    EXPECT_EQ(std::string_view(ink["hex"]), "#ff0080");
    EXPECT_EQ(double(ink["alpha"]), 0.5);
    EXPECT_EQ(root["brand"]["primary-blue"]["$value"]["alpha"].error(), simdjson::NO_SUCH_FIELD);
    // A name that is also a group is the group's root token.
    EXPECT_EQ(std::string_view(root["brand"]["$root"]["$value"]["hex"]), "#000000");
    auto body = root["body"]["$value"];
    EXPECT_EQ(std::string_view(body["fontFamily"]), "Inter");
    EXPECT_EQ(int64_t(body["fontWeight"]), 600);
    EXPECT_EQ(double(body["lineHeight"]), 1.5);
    // What a style lacks, as CSS computes it.
    auto caption = root["caption"]["$value"];
    EXPECT_EQ(double(caption["letterSpacing"]["value"]), 0);
    EXPECT_EQ(double(caption["lineHeight"]), 1.2);
    EXPECT_EQ(double(root["zero"]["$value"]["lineHeight"]), 1.2);
    if (pretty) {
      // Every member on a line of its own.
      EXPECT_NE(json.find("\n      \"$type\": \"color\",\n"), std::string::npos) << json;
      EXPECT_NE(json.find("\"components\": [\n"), std::string::npos) << json;
    }
  }
}

// One token, one name: the DTCG path joined by `-` in CSS, its camel case in Swift and Kotlin.
TEST(Tokens, EveryFormatNamesATokenAlike) {
  auto project = guideProject(
      color("1", "Brand/500", R"("r":0.2,"g":0.4,"b":1,"a":1)") + "," + color("2", "Brand", kBlack) +
          "," + color("3", "Überweiß", kBlack) + "," + color("4", "日本", kBlack) + "," +
          color("5", "500", kBlack) + "," + color("6", "Blue", kBlack) + "," +
          color("7", "Heading/H1 Color", kBlack),
      R"({"_id":"8","name":"Heading/H1","fontFace":"Inter-Bold","fontSize":28,"color":)"
      R"({"r":1,"g":0,"b":0,"a":1}},{"_id":"9","name":"Body","fontFace":"Inter","fontSize":16})");
  StyleGuide guide(*project);
  std::string dtcg = writeTokens(guide, TokenFormat::dtcg);
  std::string css = writeTokens(guide, TokenFormat::css);
  std::string swift = writeTokens(guide, TokenFormat::swift);
  std::string kotlin = writeTokens(guide, TokenFormat::kotlin);
  simdjson::dom::parser parser;
  simdjson::dom::element root = parser.parse(dtcg);
  struct Row {
    std::vector<std::string> path;
    std::string css, swift, kotlin;
  } rows[] = {
      {{"brand", "500"}, "--brand-500:", "static let brand500 =", "val brand500 ="},
      {{"brand", "$root"}, "--brand:", "static let brand =", "val brand ="},
      {{"uberweiss"}, "--uberweiss:", "static let uberweiss =", "val uberweiss ="},
      {{"token-4"}, "--token-4:", "static let token4 =", "val token4 ="},
      {{"t-500"}, "--t-500:", "static let t500 =", "val t500 ="},
      // SwiftUI has Color.blue: the Swift name takes a suffix.
      {{"blue"}, "--blue:", "static let blueColor =", "val blue ="},
      // A color named first as a text style's color would be keeps the name; the style moves
      // aside with its color.
      {{"heading", "h1-color"}, "--heading-h1-color:", "static let headingH1Color =",
       "val headingH1Color ="},
      {{"heading", "h1-2-color"}, "--heading-h1-2-color:", "static let headingH12Color =",
       "val headingH12Color ="},
      {{"heading", "h1-2"}, "--heading-h1-2-font:", "static let headingH12 =", "val headingH12 ="},
      {{"body"}, "--body-font:", "static let bodyStyle =", "val body ="},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.css);
    simdjson::dom::element at = root;
    for (const auto& part : row.path) at = at[part];
    EXPECT_EQ(at["$type"].error(), simdjson::SUCCESS) << dtcg;
    EXPECT_NE(css.find(row.css), std::string::npos) << css;
    EXPECT_NE(swift.find(row.swift), std::string::npos) << swift;
    EXPECT_NE(kotlin.find(row.kotlin), std::string::npos) << kotlin;
  }
  EXPECT_NE(kotlin.find("color = headingH12Color,"), std::string::npos) << kotlin;
}

TEST(Tokens, LengthsFollowTheDesignScale) {
  auto project = guideProject(
      "", R"({"_id":"1","name":"Title","fontFace":"Inter-Bold","fontSize":51,"lineHeight":60,)"
          R"("letterSpacing":1.5})");
  StyleGuide guide(*project);
  struct Row {
    TokenFormat format;
    std::string piece;
  } rows[] = {
      {TokenFormat::dtcg, R"("fontSize":{"value":17,"unit":"px"},"letterSpacing":{"value":0.5,"unit":"px"})"},
      {TokenFormat::css, "--title-font: 700 17px/20px \"Inter\", \"Inter-Bold\", sans-serif;"},
      {TokenFormat::css, "--title-letter-spacing: 0.5px;"},
      {TokenFormat::swift, "Font.custom(\"Inter\", size: 17).weight(.bold)"},
      {TokenFormat::swift, "line height 20, letter spacing 0.5"},
      {TokenFormat::kotlin, "fontSize = 17.sp,\n    lineHeight = 20.sp,\n    letterSpacing = 0.5.sp,"},
  };
  for (const auto& row : rows) {
    std::string text = writeTokens(guide, row.format, {.density = Density::_3x, .pretty = false});
    EXPECT_NE(text.find(row.piece), std::string::npos) << row.piece << " missing in\n" << text;
  }
  // The ratio of line height to size needs no scale.
  EXPECT_NE(writeTokens(guide, TokenFormat::dtcg, {.density = Density::_3x, .pretty = false})
                .find("\"lineHeight\":1.1765"),
            std::string::npos);
}

TEST(Tokens, CssSwiftAndKotlinDeclareEveryToken) {
  StyleGuide guide(*mixedGuide());
  struct Row {
    TokenFormat format;
    std::vector<std::string> declarations;
  } rows[] = {
      {TokenFormat::css,
       {":root {", "  --brand-primary-blue: #3366ff;", "  --brand-primary-blue-2: #1a1a1a;",
        "  --ink-50: rgba(255, 0, 128, 0.5);", "  --brand: #000000;",
        "  --body-font: 600 16px/24px \"Inter\", \"Inter-SemiBold\", sans-serif;",
        "  --body-letter-spacing: 0.5px;", "  --body-color: #000000;",
        "  --caption-font: italic 400 12px \"Inter\", \"Inter-Italic\", sans-serif;",
        "  --caption-letter-spacing: 0px;"}},
      {TokenFormat::swift,
       {"extension Color {", "static let brandPrimaryBlue = Color(red: 0.2, green: 0.4, blue: 1)",
        "static let ink50 = Color(red: 1, green: 0, blue: 0.5, opacity: 0.5)",
        "static let bodyColor = Color(red: 0, green: 0, blue: 0)", "extension Font {",
        "static let bodyStyle = Font.custom(\"Inter\", size: 16).weight(.semibold)",
        "static let captionStyle = Font.custom(\"Inter\", size: 12).italic()"}},
      {TokenFormat::kotlin,
       {"val brandPrimaryBlue = Color(0xFF3366FF)", "val ink50 = Color(0x80FF0080)",
        "val bodyColor = Color(0xFF000000)", "val body = TextStyle(", "fontWeight = FontWeight(600)",
        "fontSize = 16.sp", "lineHeight = 24.sp", "letterSpacing = 0.5.sp", "color = bodyColor,",
        "fontStyle = FontStyle.Italic"}},
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
