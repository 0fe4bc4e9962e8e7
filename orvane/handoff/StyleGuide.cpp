#include <orvane/handoff/StyleGuide.hpp>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <limits>

#include <utf8proc.h>

#include <orvane/handoff/Code.hpp>
#include <orvane/handoff/Paint.hpp>
#include <orvane/handoff/Text.hpp>
#include <orvane/internal/Markup.hpp>
#include <orvane/internal/PlatformCode.hpp>

namespace orvane::handoff {

using detail::appendNumber;
using detail::number;

namespace {

// Latin letters that no decomposition takes apart, as they are written in ASCII.
struct Spelling {
  char32_t letter;
  std::string_view ascii;
};
constexpr Spelling kSpellings[] = {{U'æ', "ae"}, {U'ð', "d"}, {U'đ', "d"},  {U'ħ', "h"},
                                   {U'ı', "i"},  {U'ĸ', "k"}, {U'ł', "l"},  {U'ŋ', "n"},
                                   {U'ø', "o"},  {U'œ', "oe"}, {U'þ', "th"}, {U'ŧ', "t"}};

// `text` with its letters in ASCII where they have a Latin base letter: compatibility
// decomposition and case folding, marks dropped (`Überweiß` -> `uberweiss`). What has no such
// letter stays as it is, for the caller to treat as a separator.
std::string foldToAscii(std::string_view text) {
  bool ascii = true;
  for (unsigned char c : text) ascii = ascii && c < 0x80;
  if (ascii) return std::string(text);
  // utf8proc refuses invalid UTF-8 as a whole: replace what is not UTF-8 first.
  std::string valid;
  for (std::size_t at = 0; at < text.size();) {
    detail::CodePoint c = detail::readCodePoint(text, at);
    detail::appendUtf8(valid, c.value);
    at += c.length;
  }
  utf8proc_uint8_t* mapped = nullptr;
  utf8proc_ssize_t n = utf8proc_map(
      reinterpret_cast<const utf8proc_uint8_t*>(valid.data()),
      static_cast<utf8proc_ssize_t>(valid.size()), &mapped,
      static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPAT | UTF8PROC_DECOMPOSE |
                                     UTF8PROC_CASEFOLD | UTF8PROC_STRIPMARK));
  if (n < 0) return valid;
  std::string folded(reinterpret_cast<char*>(mapped), static_cast<std::size_t>(n));
  std::free(mapped);
  std::string out;
  for (std::size_t at = 0; at < folded.size();) {
    detail::CodePoint c = detail::readCodePoint(folded, at);
    std::string_view spelled;
    for (const auto& s : kSpellings) {
      if (s.letter == c.value) spelled = s.ascii;
    }
    if (spelled.empty()) {
      out.append(folded, at, c.length);
    } else {
      out += spelled;
    }
    at += c.length;
  }
  return out;
}

bool isAsciiAlnum(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

bool startsWithDigit(std::string_view s) { return !s.empty() && s[0] >= '0' && s[0] <= '9'; }

}  // namespace

std::string slug(std::string_view name, std::string_view empty, std::string_view digitPrefix) {
  std::string out;
  bool gap = false;
  for (char ch : foldToAscii(name)) {
    if (isAsciiAlnum(ch)) {
      if (gap && !out.empty()) out += '-';
      gap = false;
      out += static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    } else {
      gap = true;
    }
  }
  if (out.empty()) return std::string(empty);
  if (startsWithDigit(out)) out.insert(0, digitPrefix);
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
  if (taken(candidate)) {
    int& n = next_.try_emplace(name, 2).first->second;
    do {
      candidate = name + "-" + std::to_string(n++);
    } while (taken(candidate));
  }
  reserve(candidate);
  return candidate;
}

bool UniqueNames::taken(const std::string& name) const {
  return names_.count(name) || (camelCaseToo_ && names_.count(camelCase(name)));
}

void UniqueNames::reserve(const std::string& name) {
  names_.insert(name);
  if (camelCaseToo_) names_.insert(camelCase(name));
}

namespace {

std::string joined(const std::vector<std::string>& path) {
  std::string out;
  for (const auto& part : path) out += (out.empty() ? "" : "-") + part;
  return out;
}

// The names a token of `name` brings along; all must be free for it to take `name`.
std::vector<std::string> namesOf(const std::string& name, bool textStyle) {
  if (!textStyle) return {name};
  return {name, name + "-font", name + "-letter-spacing", name + "-color"};
}

template <class T>
StyleGuide::Token<T> tokenFor(const Ref<T>& value, std::size_t place, UniqueNames& names,
                              bool textStyle) {
  StyleGuide::Token<T> token{value, {}, {}};
  std::string_view rest = value->name();
  for (;;) {
    std::size_t slash = rest.find('/');
    std::string part = slug(rest.substr(0, slash), "", "");
    if (!part.empty()) token.path.push_back(std::move(part));
    if (slash == std::string_view::npos) break;
    rest.remove_prefix(slash + 1);
  }
  if (token.path.empty()) token.path.push_back("token-" + std::to_string(place));
  if (startsWithDigit(token.path.front())) token.path.front().insert(0, "t-");
  const std::string base = joined(token.path);
  std::string name = base;
  for (int n = 2;; ++n) {
    bool free = true;
    for (const auto& each : namesOf(name, textStyle)) free = free && !names.taken(each);
    if (free) break;
    name = base + "-" + std::to_string(n);
  }
  for (const auto& each : namesOf(name, textStyle)) names.reserve(each);
  // The last part carries what made the whole name unique.
  token.path.back() += name.substr(base.size());
  token.name = std::move(name);
  return token;
}

bool sameColor(const Color& a, const Color& b) {
  Rgba x = rgba(a), y = rgba(b);
  return x.red == y.red && x.green == y.green && x.blue == y.blue &&
         std::lround(x.alpha * 255) == std::lround(y.alpha * 255);
}

}  // namespace

StyleGuide::StyleGuide(const Project& project) {
  UniqueNames names(true);
  std::size_t place = 0;
  if (project.colors()) {
    for (const auto& color : *project.colors()) {
      if (color) colors_.push_back(tokenFor(color, ++place, names, false));
    }
  }
  if (project.textStyles()) {
    for (const auto& style : *project.textStyles()) {
      if (style) textStyles_.push_back(tokenFor(style, ++place, names, true));
    }
  }
}

std::string colorTokenName(const StyleGuide::Token<ProjectTextStyle>& style) {
  return style.name + "-color";
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

// DTCG: a tree of groups by the path's parts. A node that is both a token and a group writes
// its token as the group's `$root`.
struct Node {
  std::string key;
  std::string token;  // the token's JSON, if it is one
  std::vector<Node> children;
};

Node& childNamed(Node& node, const std::string& key) {
  for (auto& c : node.children) {
    if (c.key == key) return c;
  }
  node.children.push_back({key, {}, {}});
  return node.children.back();
}

void insert(Node& root, const std::vector<std::string>& path, std::string json) {
  Node* at = &root;
  for (const auto& part : path) at = &childNamed(*at, part);
  at->token = std::move(json);
}

void writeNode(std::string& out, const Node& node) {
  out += '{';
  bool first = true;
  auto member = [&](std::string_view key, const std::string& value) {
    if (!first) out += ',';
    first = false;
    detail::appendJsonString(out, key);
    out += ':';
    out += value;
  };
  if (!node.token.empty() && !node.children.empty()) member("$root", node.token);
  for (const Node& c : node.children) {
    if (c.children.empty()) {
      member(c.key, c.token);
    } else {
      std::string group;
      writeNode(group, c);
      member(c.key, group);
    }
  }
  out += '}';
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

// The line height as a ratio to the size; CSS's `normal` where the style has none to give.
double lineHeightRatio(const TextStyle& style) {
  double size = style.fontSize();
  if (!style.lineHeight() || !std::isfinite(*style.lineHeight()) || !std::isfinite(size) ||
      size <= 0) {
    return 1.2;
  }
  return *style.lineHeight() / size;
}

std::string dtcgTypography(const TextStyle& style, double scale) {
  FontFace face = fontFace(style.fontName());
  std::string json = R"({"$type":"typography","$value":{"fontFamily":)";
  detail::appendJsonString(json, face.family);
  json += ",\"fontWeight\":" + std::to_string(face.weight);
  dimension(json, "fontSize", style.fontSize() / scale);
  dimension(json, "letterSpacing", style.letterSpacing().value_or(0) / scale);
  json += ",\"lineHeight\":";
  appendNumber(json, lineHeightRatio(style));
  return json + "}}";
}

std::vector<std::string> colorPath(const StyleGuide::Token<ProjectTextStyle>& t) {
  std::vector<std::string> path = t.path;
  path.back() += "-color";
  return path;
}

std::string writeDtcg(const StyleGuide& guide, const TokenOptions& options) {
  const double scale = densityScale(options.density);
  Node root;
  for (const auto& t : guide.colors()) insert(root, t.path, dtcgColor(*t.value));
  for (const auto& t : guide.textStyles()) {
    insert(root, t.path, dtcgTypography(*t.value, scale));
    if (t.value->color()) insert(root, colorPath(t), dtcgColor(*t.value->color()));
  }
  std::string out;
  writeNode(out, root);
  return (options.pretty ? detail::indentJson(out) : out) + "\n";
}

}  // namespace

std::string codeNumber(double value, bool& clamped) {
  constexpr double kMost = std::numeric_limits<float>::max();
  if (std::isnan(value)) {
    clamped = true;
    value = 0;
  } else if (std::abs(value) > kMost) {
    clamped = true;
    value = std::copysign(kMost, value);
  }
  return number(value);
}

std::string cssFontFamily(std::string_view fontName) {
  FontFace face = fontFace(fontName);
  std::string out;
  detail::appendCssString(out, face.family);
  if (face.family != fontName && !fontName.empty()) {
    out += ", ";
    detail::appendCssString(out, fontName);
  }
  return out + ", sans-serif";
}

std::string cssFont(const TextStyle& style, double scale, bool& clamped) {
  FontFace face = fontFace(style.fontName());
  std::string font = face.italic ? "italic " : "";
  font += std::to_string(face.weight) + " " + codeNumber(style.fontSize() / scale, clamped) + "px";
  if (style.lineHeight()) {
    font += '/';
    font += codeNumber(*style.lineHeight() / scale, clamped) + "px";
  }
  return font + " " + cssFontFamily(style.fontName());
}

namespace {

const char* const kClampedNote = "values beyond what a Float holds, or not numbers, are clamped";

std::string writeCss(const StyleGuide& guide, double scale) {
  bool clamped = false;
  std::string out;
  for (const auto& t : guide.colors()) {
    out += "  --" + t.name + ": " + rgba(*t.value).css() + ";\n";
  }
  for (const auto& t : guide.textStyles()) {
    const ProjectTextStyle& style = *t.value;
    out += "  --" + t.name + "-font: " + cssFont(style, scale, clamped) + ";\n";
    out += "  --" + t.name + "-letter-spacing: " +
           codeNumber(style.letterSpacing().value_or(0) / scale, clamped) + "px;\n";
    if (style.color()) out += "  --" + colorTokenName(t) + ": " + rgba(*style.color()).css() + ";\n";
  }
  return ":root {\n" + (clamped ? "  /* " + std::string(kClampedNote) + " */\n" : "") + out +
         "}\n";
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

std::string swiftFont(const TextStyle& style, double scale, bool& clamped) {
  FontFace face = fontFace(style.fontName());
  std::string out = "Font.custom(" + swiftString(face.family);
  out += ", size: " + codeNumber(style.fontSize() / scale, clamped) + ")";
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

std::string writeSwift(const StyleGuide& guide, double scale) {
  bool clamped = false;
  std::string colors, fonts;
  for (const auto& t : guide.colors()) {
    colors += "    static let " + swiftName(t.name, false) + " = " + swiftColor(*t.value) + "\n";
  }
  for (const auto& t : guide.textStyles()) {
    const ProjectTextStyle& s = *t.value;
    if (s.color()) {
      colors += "    static let " + swiftName(colorTokenName(t), false) + " = " +
                swiftColor(*s.color()) + "\n";
    }
    std::string notes;
    if (s.lineHeight()) notes += "line height " + codeNumber(*s.lineHeight() / scale, clamped);
    if (s.letterSpacing()) {
      notes += (notes.empty() ? "" : ", ") + std::string("letter spacing ") +
               codeNumber(*s.letterSpacing() / scale, clamped);
    }
    if (!notes.empty()) {
      fonts += "    /// " + notes + " (set them on the Text: .lineSpacing, .kerning)\n";
    }
    fonts += "    static let " + swiftName(t.name, true) + " = " + swiftFont(s, scale, clamped) +
             "\n";
  }
  std::string out = "import SwiftUI\n";
  if (clamped) out += "\n// " + std::string(kClampedNote) + "\n";
  if (!colors.empty()) out += "\nextension Color {\n" + colors + "}\n";
  if (!fonts.empty()) out += "\nextension Font {\n" + fonts + "}\n";
  return out;
}

}  // namespace

std::string kotlinTextStyle(const TextStyle& style, double scale, const std::string& indent,
                            const std::string& color, bool& clamped, const std::string& extra) {
  FontFace face = fontFace(style.fontName());
  std::string out = "TextStyle(\n";
  out += indent + "    fontFamily = FontFamily.Default, // ";
  detail::appendJsonString(out, face.family);
  out += "\n" + indent + "    fontWeight = FontWeight(" + std::to_string(face.weight) + "),\n";
  if (face.italic) out += indent + "    fontStyle = FontStyle.Italic,\n";
  out += indent + "    fontSize = " + codeNumber(style.fontSize() / scale, clamped) + ".sp,\n";
  if (style.lineHeight()) {
    out += indent + "    lineHeight = " + codeNumber(*style.lineHeight() / scale, clamped) +
           ".sp,\n";
  }
  if (style.letterSpacing()) {
    out += indent + "    letterSpacing = " + codeNumber(*style.letterSpacing() / scale, clamped) +
           ".sp,\n";
  }
  if (!color.empty()) out += indent + "    color = " + color + ",\n";
  if (style.alignment()) {
    static constexpr const char* kAlign[] = {"Left", "Center", "Right", "Justify"};
    out += indent + "    textAlign = TextAlign." + kAlign[static_cast<int>(*style.alignment())] +
           ",\n";
  }
  out += extra;
  return out + indent + ")";
}

namespace {

std::string writeKotlin(const StyleGuide& guide, double scale) {
  bool clamped = false;
  std::string colors, styles;
  for (const auto& t : guide.colors()) {
    colors += "val " + kotlinName(t.name) + " = " + kotlinColor(*t.value) + "\n";
  }
  for (const auto& t : guide.textStyles()) {
    std::string color;
    if (t.value->color()) {
      color = kotlinName(colorTokenName(t));
      colors += "val " + color + " = " + kotlinColor(*t.value->color()) + "\n";
    }
    styles += "\nval " + kotlinName(t.name) + " = " +
              kotlinTextStyle(*t.value, scale, "", color, clamped, "") + "\n";
  }
  std::string out =
      "import androidx.compose.ui.graphics.Color\n"
      "import androidx.compose.ui.text.TextStyle\n"
      "import androidx.compose.ui.text.font.FontFamily\n"
      "import androidx.compose.ui.text.font.FontStyle\n"
      "import androidx.compose.ui.text.font.FontWeight\n"
      "import androidx.compose.ui.text.style.TextAlign\n"
      "import androidx.compose.ui.unit.sp\n";
  if (clamped) out += "\n// " + std::string(kClampedNote) + "\n";
  if (!colors.empty()) out += "\n" + colors;
  return out + styles;
}

}  // namespace

std::string writeTokens(const StyleGuide& guide, TokenFormat format,
                        const TokenOptions& options) {
  const double scale = densityScale(options.density);
  switch (format) {
    case TokenFormat::dtcg:
      return writeDtcg(guide, options);
    case TokenFormat::css:
      return writeCss(guide, scale);
    case TokenFormat::swift:
      return writeSwift(guide, scale);
    case TokenFormat::kotlin:
      return writeKotlin(guide, scale);
  }
  return {};
}

}  // namespace orvane::handoff
