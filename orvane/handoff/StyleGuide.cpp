#include <orvane/handoff/StyleGuide.hpp>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>

#include <orvane/handoff/Paint.hpp>
#include <orvane/handoff/Text.hpp>
#include <orvane/internal/Markup.hpp>
#include <orvane/internal/PlatformCode.hpp>

namespace orvane::handoff {

using detail::appendNumber;
using detail::number;

std::string slug(std::string_view name, std::string_view empty, std::string_view digitPrefix) {
  std::string out;
  bool gap = false;
  for (char ch : name) {
    unsigned char c = static_cast<unsigned char>(ch);
    if (std::isalnum(c) && c < 0x80) {
      if (gap && !out.empty()) out += '-';
      gap = false;
      out += static_cast<char>(std::tolower(c));
    } else {
      gap = true;
    }
  }
  if (out.empty()) return std::string(empty);
  if (std::isdigit(static_cast<unsigned char>(out[0]))) out.insert(0, digitPrefix);
  return out;
}

std::string camelCase(std::string_view slug) {
  std::string out;
  bool upper = false;
  for (char c : slug) {
    if (c == '-') {
      upper = !out.empty();
      continue;
    }
    out += upper ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
    upper = false;
  }
  return out;
}

std::string UniqueNames::take(const std::string& name) {
  std::string candidate = name;
  for (int n = 2; taken(candidate); ++n) candidate = name + "-" + std::to_string(n);
  names_.push_back(candidate);
  return candidate;
}

bool UniqueNames::taken(const std::string& name) const {
  return std::find(names_.begin(), names_.end(), name) != names_.end();
}

namespace {

template <class T>
StyleGuide::Token<T> tokenFor(const Ref<T>& value, UniqueNames& names) {
  StyleGuide::Token<T> token{value, {}, {}};
  std::string_view rest = value->name();
  for (;;) {
    std::size_t slash = rest.find('/');
    std::string_view part = rest.substr(0, slash);
    if (!slug(part, "", "").empty()) token.path.push_back(slug(part, "token", "t-"));
    if (slash == std::string_view::npos) break;
    rest.remove_prefix(slash + 1);
  }
  if (token.path.empty()) token.path.push_back("token");
  std::string base = slug(value->name(), "token", "t-");
  token.name = names.take(base);
  // The last part carries what made the whole name unique.
  token.path.back() += token.name.substr(base.size());
  return token;
}

bool sameColor(const Color& a, const Color& b) {
  Rgba x = rgba(a), y = rgba(b);
  return x.red == y.red && x.green == y.green && x.blue == y.blue &&
         std::lround(x.alpha * 255) == std::lround(y.alpha * 255);
}

}  // namespace

StyleGuide::StyleGuide(const Project& project) {
  UniqueNames names;
  if (project.colors()) {
    for (const auto& color : *project.colors()) {
      if (color) colors_.push_back(tokenFor(color, names));
    }
  }
  if (project.textStyles()) {
    for (const auto& style : *project.textStyles()) {
      if (style) textStyles_.push_back(tokenFor(style, names));
    }
  }
}

const StyleGuide::Token<ProjectColor>* StyleGuide::color(const Color& color) const {
  for (const auto& token : colors_) {
    if (sameColor(*token.value, color)) return &token;
  }
  return nullptr;
}

const StyleGuide::Token<ProjectTextStyle>* StyleGuide::textStyle(const TextStyle& style) const {
  for (const auto& token : textStyles_) {
    const ProjectTextStyle& t = *token.value;
    bool colors = (!t.color() && !style.color()) ||
                  (t.color() && style.color() && sameColor(*t.color(), *style.color()));
    if (t.fontName() == style.fontName() && t.fontSize() == style.fontSize() &&
        t.lineHeight() == style.lineHeight() && t.letterSpacing() == style.letterSpacing() &&
        colors && (!t.alignment() || t.alignment() == style.alignment())) {
      return &token;
    }
  }
  return nullptr;
}

// --- Writing the tokens --------------------------------------------------------------------

namespace {

// DTCG: a tree of groups by name parts, tokens at the leaves.
struct Node {
  std::string key;
  std::string token;  // the token's JSON when a leaf
  std::vector<Node> children;
};

Node* child(Node& node, const std::string& key) {
  for (auto& c : node.children) {
    if (c.key == key) return &c;
  }
  return nullptr;
}

// Puts a token at its path; where a part is already a token (or the leaf already a group),
// the token goes to the top level under its whole, unique name instead.
void insert(Node& root, const std::vector<std::string>& path, const std::string& name,
            std::string json) {
  Node* at = &root;
  for (std::size_t i = 0; i + 1 < path.size(); ++i) {
    Node* next = child(*at, path[i]);
    if (next && !next->token.empty()) {
      at = nullptr;
      break;
    }
    if (!next) {
      at->children.push_back({path[i], {}, {}});
      next = &at->children.back();
    }
    at = next;
  }
  if (!at || child(*at, path.back())) {
    UniqueNames top;
    for (const auto& c : root.children) top.take(c.key);
    root.children.push_back({top.take(name), std::move(json), {}});
    return;
  }
  at->children.push_back({path.back(), std::move(json), {}});
}

// Groups laid out one member a line when `pretty`, each token on a line of its own.
void writeNode(std::string& out, const Node& node, int depth, bool pretty) {
  std::string indent = pretty ? std::string(2 * depth, ' ') : "";
  out += pretty ? "{\n" : "{";
  for (std::size_t i = 0; i < node.children.size(); ++i) {
    const Node& c = node.children[i];
    if (pretty) out += indent + "  ";
    detail::appendJsonString(out, c.key);
    out += pretty ? ": " : ":";
    if (c.token.empty()) {
      writeNode(out, c, depth + 1, pretty);
    } else {
      out += c.token;
    }
    if (i + 1 < node.children.size()) out += ',';
    if (pretty) out += '\n';
  }
  out += indent + "}";
}

std::string dtcgColor(const Color& color) {
  Rgba c = rgba(color);
  std::string json = R"({"$type":"color","$value":{"colorSpace":"srgb","components":[)";
  double components[] = {color.red(), color.green(), color.blue()};
  for (int i = 0; i < 3; ++i) {
    if (i) json += ',';
    double v = components[i];
    appendNumber(json, std::isfinite(v) ? std::clamp(v, 0.0, 1.0) : 0.0);
  }
  json += "]";
  if (c.alpha < 1) {
    json += ",\"alpha\":";
    appendNumber(json, c.alpha);
  }
  return json + ",\"hex\":\"" + c.hex() + "\"}}";
}

void dimension(std::string& json, const char* name, double px) {
  json += ",\"";
  json += name;
  json += "\":{\"value\":";
  appendNumber(json, px);
  json += ",\"unit\":\"px\"}";
}

std::string dtcgTypography(const TextStyle& style) {
  FontFace face = fontFace(style.fontName());
  std::string json = R"({"$type":"typography","$value":{"fontFamily":)";
  detail::appendJsonString(json, face.family);
  json += ",\"fontWeight\":" + std::to_string(face.weight);
  dimension(json, "fontSize", style.fontSize());
  if (style.letterSpacing()) dimension(json, "letterSpacing", *style.letterSpacing());
  if (style.lineHeight() && style.fontSize() > 0) {
    json += ",\"lineHeight\":";
    appendNumber(json, *style.lineHeight() / style.fontSize());
  }
  return json + "}}";
}

std::string writeDtcg(const StyleGuide& guide, bool pretty) {
  Node root;
  for (const auto& t : guide.colors()) insert(root, t.path, t.name, dtcgColor(*t.value));
  for (const auto& t : guide.textStyles()) insert(root, t.path, t.name, dtcgTypography(*t.value));
  std::string out;
  writeNode(out, root, 0, pretty);
  return out + "\n";
}

}  // namespace

std::string cssFont(const TextStyle& style) {
  FontFace face = fontFace(style.fontName());
  std::string font = face.italic ? "italic " : "";
  font += std::to_string(face.weight) + " " + number(style.fontSize()) + "px";
  if (style.lineHeight()) {
    font += '/';
    font += number(*style.lineHeight()) + "px";
  }
  font += " ";
  detail::appendCssString(font, face.family);
  return font + ", sans-serif";
}

namespace {

std::string writeCss(const StyleGuide& guide) {
  std::string out = ":root {\n";
  for (const auto& t : guide.colors()) {
    out += "  --" + t.name + ": " + rgba(*t.value).css() + ";\n";
  }
  for (const auto& t : guide.textStyles()) {
    out += "  --" + t.name + "-font: " + cssFont(*t.value) + ";\n";
    if (t.value->letterSpacing()) {
      out += "  --" + t.name + "-letter-spacing: " + number(*t.value->letterSpacing()) + "px;\n";
    }
    if (t.value->color())
      out += "  --" + t.name + "-color: " + rgba(*t.value->color()).css() + ";\n";
  }
  return out + "}\n";
}

}  // namespace

std::string swiftName(std::string_view slug, bool font) {
  static constexpr std::array<std::string_view, 20> kColors = {
      "red",   "orange", "yellow",  "green",     "mint",        "teal",  "cyan",
      "blue",  "indigo", "purple",  "pink",      "brown",       "white", "gray",
      "black", "clear",  "primary", "secondary", "accentColor", "init"};
  static constexpr std::array<std::string_view, 12> kFonts = {
      "largeTitle", "title",   "title2",   "title3",  "headline", "subheadline",
      "body",       "callout", "footnote", "caption", "caption2", "init"};
  std::string name = camelCase(slug);
  bool builtIn = font ? std::find(kFonts.begin(), kFonts.end(), name) != kFonts.end()
                      : std::find(kColors.begin(), kColors.end(), name) != kColors.end();
  if (builtIn) name += font ? "Style" : "Color";
  static constexpr std::array<std::string_view, 24> kKeywords = {
      "as", "break",  "case", "catch",     "class", "continue", "default", "defer",
      "do", "else",   "enum", "extension", "false", "for",      "func",    "guard",
      "if", "import", "in",   "let",       "nil",   "return",   "self",    "static"};
  if (std::find(kKeywords.begin(), kKeywords.end(), name) != kKeywords.end()) {
    return "`" + name + "`";
  }
  return name;
}

std::string kotlinName(std::string_view slug) {
  static constexpr std::array<std::string_view, 24> kKeywords = {
      "as",     "break", "class", "continue",  "do",   "else", "false",  "for",
      "fun",    "if",    "in",    "interface", "is",   "null", "object", "package",
      "return", "super", "this",  "throw",     "true", "try",  "val",    "var"};
  std::string name = camelCase(slug);
  if (std::find(kKeywords.begin(), kKeywords.end(), name) != kKeywords.end() || name == "when" ||
      name == "while" || name == "typealias" || name == "typeof") {
    return "`" + name + "`";
  }
  return name;
}

std::string swiftString(std::string_view text) {
  std::string out;
  detail::appendQuoted(out, text, [](std::string& o, char32_t c) {
    static constexpr char kHex[] = "0123456789abcdef";
    o += "\\u{";
    if (c >= 0x10) o += kHex[c >> 4];
    o += kHex[c & 0xF];
    o += '}';
  });
  return out;
}

std::string swiftColor(const Color& color) {
  auto component = [](double v) {
    return number(std::isfinite(v) ? std::clamp(v, 0.0, 1.0) : 0.0);
  };
  std::string out = "Color(red: " + component(color.red()) +
                    ", green: " + component(color.green()) + ", blue: " + component(color.blue());
  Rgba c = rgba(color);
  if (c.alpha < 1) out += ", opacity: " + number(c.alpha);
  return out + ")";
}

namespace {

// SwiftUI's `Font.Weight` for a CSS weight.
std::string swiftWeight(int weight) {
  switch (weight) {
    case 100:
      return ".thin";
    case 200:
      return ".ultraLight";
    case 300:
      return ".light";
    case 500:
      return ".medium";
    case 600:
      return ".semibold";
    case 700:
      return ".bold";
    case 800:
      return ".heavy";
    case 900:
      return ".black";
    default:
      return ".regular";
  }
}

}  // namespace

std::string swiftFont(const TextStyle& style, double scale) {
  FontFace face = fontFace(style.fontName());
  std::string out = "Font.custom(" + swiftString(style.fontName());
  out += ", size: " + number(style.fontSize() / scale) + ")";
  if (face.weight != 400) out += ".weight(" + swiftWeight(face.weight) + ")";
  if (face.italic) out += ".italic()";
  return out;
}

std::string kotlinColor(const Color& color) {
  Rgba c = rgba(color);
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string out = "Color(0x";
  for (std::uint8_t b :
       {static_cast<std::uint8_t>(std::lround(c.alpha * 255)), c.red, c.green, c.blue}) {
    out += kHex[b >> 4];
    out += kHex[b & 0xF];
  }
  return out + ")";
}

namespace {

std::string writeSwift(const StyleGuide& guide) {
  std::string out = "import SwiftUI\n";
  if (!guide.colors().empty()) {
    out += "\nextension Color {\n";
    for (const auto& t : guide.colors()) {
      out += "    static let " + swiftName(t.name, false) + " = " + swiftColor(*t.value) + "\n";
    }
    out += "}\n";
  }
  if (!guide.textStyles().empty()) {
    out += "\nextension Font {\n";
    for (const auto& t : guide.textStyles()) {
      const ProjectTextStyle& s = *t.value;
      std::string notes;
      if (s.lineHeight()) notes += "line height " + number(*s.lineHeight());
      if (s.letterSpacing()) {
        notes += (notes.empty() ? "" : ", ") + std::string("letter spacing ") +
                 number(*s.letterSpacing());
      }
      if (!notes.empty()) out += "    /// " + notes + " (set them on the Text)\n";
      out += "    static let " + swiftName(t.name, true) + " = " + swiftFont(s, 1) + "\n";
    }
    out += "}\n";
  }
  return out;
}

}  // namespace

std::string kotlinTextStyle(const TextStyle& style, double scale, const std::string& indent,
                            const std::string& color) {
  FontFace face = fontFace(style.fontName());
  std::string out = "TextStyle(\n";
  out += indent + "    fontFamily = FontFamily.Default, // ";
  detail::appendJsonString(out, face.family);
  out += "\n" + indent + "    fontWeight = FontWeight(" + std::to_string(face.weight) + "),\n";
  if (face.italic) out += indent + "    fontStyle = FontStyle.Italic,\n";
  out += indent + "    fontSize = " + number(style.fontSize() / scale) + ".sp,\n";
  if (style.lineHeight())
    out += indent + "    lineHeight = " + number(*style.lineHeight() / scale) + ".sp,\n";
  if (style.letterSpacing()) {
    out += indent + "    letterSpacing = " + number(*style.letterSpacing() / scale) + ".sp,\n";
  }
  if (!color.empty()) out += indent + "    color = " + color + ",\n";
  if (style.alignment()) {
    static constexpr const char* kAlign[] = {"Left", "Center", "Right", "Justify"};
    out += indent + "    textAlign = TextAlign." + kAlign[static_cast<int>(*style.alignment())] +
           ",\n";
  }
  return out + indent + ")";
}

namespace {

std::string writeKotlin(const StyleGuide& guide) {
  std::string out =
      "import androidx.compose.ui.graphics.Color\n"
      "import androidx.compose.ui.text.TextStyle\n"
      "import androidx.compose.ui.text.font.FontFamily\n"
      "import androidx.compose.ui.text.font.FontStyle\n"
      "import androidx.compose.ui.text.font.FontWeight\n"
      "import androidx.compose.ui.text.style.TextAlign\n"
      "import androidx.compose.ui.unit.sp\n";
  if (!guide.colors().empty()) out += "\n";
  for (const auto& t : guide.colors()) {
    out += "val " + kotlinName(t.name) + " = " + kotlinColor(*t.value) + "\n";
  }
  for (const auto& t : guide.textStyles()) {
    std::string color = t.value->color() ? kotlinColor(*t.value->color()) : "";
    out += "\nval " + kotlinName(t.name) + " = " + kotlinTextStyle(*t.value, 1, "", color) + "\n";
  }
  return out;
}

}  // namespace

std::string writeTokens(const StyleGuide& guide, TokenFormat format, bool pretty) {
  switch (format) {
    case TokenFormat::dtcg:
      return writeDtcg(guide, pretty);
    case TokenFormat::css:
      return writeCss(guide);
    case TokenFormat::swift:
      return writeSwift(guide);
    case TokenFormat::kotlin:
      return writeKotlin(guide);
  }
  return {};
}

}  // namespace orvane::handoff
