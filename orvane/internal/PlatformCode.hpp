// How values are spelled in each platform's code; shared by the layer code and the tokens.
#pragma once

#include <string>
#include <string_view>

#include <orvane/styles/TextStyle.hpp>
#include <orvane/values/BlendMode.hpp>
#include <orvane/values/Color.hpp>

namespace orvane::handoff {

/// A blend mode's name in SwiftUI (`.multiply`) and in Compose (`Multiply`); `exact` says
/// whether it composites as the model's mode does or is the nearest.
std::string_view swiftBlendMode(BlendMode mode, bool& exact);
std::string_view composeBlendMode(BlendMode mode, bool& exact);
/// `text` as a Swift string literal: quotes, backslashes and line breaks escaped, other control
/// characters as `\u{X}`, bytes that are not UTF-8 as U+FFFD.
std::string swiftString(std::string_view text);
/// `value` as code writes a number; a value a Float cannot hold, or no number at all, is clamped
/// to the nearest a Float holds (NaN to 0), and `clamped` set.
std::string codeNumber(double value, bool& clamped);
/// The CSS `font-family` list of a face: its family, the face name, a generic family
/// (`"Helvetica Neue", "HelveticaNeue", sans-serif`).
std::string cssFontFamily(std::string_view fontName);
/// The CSS `font` shorthand of a style: style, weight, size, line height and family, lengths
/// divided by `scale`.
std::string cssFont(const TextStyle& style, double scale, bool& clamped);
/// A token's name as a Swift `Color` or `Font` member, clear of SwiftUI's own and of keywords.
std::string swiftName(std::string_view slug, bool font);
/// A token's name as a Kotlin value, clear of keywords.
std::string kotlinName(std::string_view slug);
/// `Color(red: r, green: g, blue: b[, opacity: a])`.
std::string swiftColor(const Color& color);
/// `Font.custom("Family", size: n)` with its weight and italic, sizes divided by `scale`.
std::string swiftFont(const TextStyle& style, double scale, bool& clamped);
/// `Color(0xAARRGGBB)`.
std::string kotlinColor(const Color& color);
/// A Compose `TextStyle(...)` spread over lines after `indent`, sizes divided by `scale`; the
/// color as the code given, left out when empty; `extra` adds argument lines before the close.
std::string kotlinTextStyle(const TextStyle& style, double scale, const std::string& indent,
                            const std::string& color, bool& clamped, const std::string& extra);

}  // namespace orvane::handoff
