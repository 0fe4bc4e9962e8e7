// Text for markup and style sheets: numbers without needless digits, escaped XML, CSS strings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvane::detail {

/// Appends `value` rounded to `decimals` places with trailing zeros dropped ("12", "0.5",
/// "-3.25"); never "-0", and 0 for a value that is not finite. From 1e15 on, a number is
/// written with an exponent (`1e+308`), never as hundreds of digits.
void appendNumber(std::string& out, double value, int decimals = 4);
std::string number(double value, int decimals = 4);

/// One code point read from UTF-8 at `at`, and how many bytes it took. A byte that starts no
/// valid sequence (an overlong form, a surrogate, a stray continuation) reads as U+FFFD, one
/// byte long.
struct CodePoint {
  char32_t value;
  std::size_t length;
};
CodePoint readCodePoint(std::string_view text, std::size_t at);

void appendUtf8(std::string& out, char32_t c);

/// Appends `text` for XML content or a double-quoted attribute: `&`, `<`, `>` and `"` as
/// entities, and what XML cannot hold (control characters other than tab and line breaks,
/// U+FFFE, U+FFFF, bytes that are not UTF-8) as U+FFFD.
void appendXml(std::string& out, std::string_view text);

/// Appends `text` as a double-quoted CSS string, with quotes, backslashes and control
/// characters escaped (the result still needs `appendXml` inside markup).
void appendCssString(std::string& out, std::string_view text);

}  // namespace orvane::detail

namespace orvane::detail {

/// Appends `text` in double quotes with `"`, `\`, line breaks and tabs escaped as C-family
/// languages write them, other control characters as `control` writes them, and bytes that
/// are not UTF-8 as U+FFFD.
void appendQuoted(std::string& out, std::string_view text,
                  void (*control)(std::string& out, char32_t c));

/// Appends `text` as a JSON string, quotes included; bytes that are not UTF-8 become U+FFFD.
void appendJsonString(std::string& out, std::string_view text);

/// Compact JSON laid out two spaces a level, one member or element a line, `": "` after keys;
/// empty objects and arrays stay `{}` and `[]`.
std::string indentJson(std::string_view compact);

}  // namespace orvane::detail
