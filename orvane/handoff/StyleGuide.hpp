// A project's style guide as named tokens: names made from the colors' and text styles' names,
// lookups of a layer's values among them, and the tokens written for each platform.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <orvane/project/Project.hpp>
#include <orvane/styles/ProjectColor.hpp>
#include <orvane/styles/ProjectTextStyle.hpp>
#include <orvane/values/Density.hpp>

namespace orvane::handoff {

/// A name for code made from a design name: its letters folded to ASCII (Unicode compatibility
/// decomposition and case folding, marks dropped: `Überweiß` is `uberweiss`), letters and digits
/// kept, every other run of characters as one `-`, no `-` at either end; `empty` when nothing is
/// left, and `digitPrefix` before a leading digit (`layer` and `l-` for layers, `t-` for tokens).
std::string slug(std::string_view name, std::string_view empty, std::string_view digitPrefix);

/// `primary-blue` as `primaryBlue`, for languages whose names cannot hold `-`.
std::string camelCase(std::string_view slug);

/// Hands out names, each once: a name already given gets `-2`, `-3`, ... after it.
class UniqueNames {
 public:
  /// With `camelCaseToo`, a name also counts as taken when its `camelCase` form is (`a-1` after
  /// `a1`), for names that other languages write in camel case.
  explicit UniqueNames(bool camelCaseToo = false) : camelCaseToo_(camelCaseToo) {}
  /// `name` if it is free, else the first free `name-N`; the result is taken.
  std::string take(const std::string& name);
  /// Whether `name` has been taken.
  bool taken(const std::string& name) const;
  /// Takes `name` as it is, free or not.
  void reserve(const std::string& name);

 private:
  bool camelCaseToo_;
  std::unordered_set<std::string> names_;
  // Where each name's search for a free suffix goes on, so that a thousand layers of one name
  // take a thousand steps, not half a million.
  std::unordered_map<std::string, int> next_;
};

/// The style guide of a project, its colors then its text styles, each with a token name
/// unique among them all.
///
/// A token's path is the `/`-separated parts of its name, each made a name as `slug` makes it
/// (`Brand/500` is `brand`, `500`; a leading digit of the whole name gets `t-`); a name with no
/// letter or digit left is `token-N`, N its place in the guide from 1. The path joined by `-` is
/// the token's name in every format (`brand-500`, in Swift and Kotlin `brand500`); a name taken
/// before gets `-2`, `-3` on its last part. A text style also names the tokens made from it,
/// which are kept free as well: NAME-font and NAME-letter-spacing (CSS) and NAME-color, the
/// token of its color.
class StyleGuide {
 public:
  /// A named value of the guide.
  template <class T>
  struct Token {
    Ref<T> value;                   ///< the project's color or text style
    std::string name;               ///< the path joined by `-`, unique in the guide
    std::vector<std::string> path;  ///< the name's parts; the last made unique as `name` is
  };

  /// The project's colors and text styles (none for an empty guide).
  explicit StyleGuide(const Project& project);
  StyleGuide() = default;

  /// The colors, in the project's order.
  const std::vector<Token<ProjectColor>>& colors() const { return colors_; }
  /// The text styles, in the project's order.
  const std::vector<Token<ProjectTextStyle>>& textStyles() const { return textStyles_; }

  /// The guide's color that looks like `color` (the same 8-bit channels and alpha), or null.
  const Token<ProjectColor>* color(const Color& color) const;
  /// The guide's text style equal to `style` (font, size, line height, letter spacing, color,
  /// and alignment where the guide's style has one), or null.
  const Token<ProjectTextStyle>* textStyle(const TextStyle& style) const;

 private:
  std::vector<Token<ProjectColor>> colors_;
  std::vector<Token<ProjectTextStyle>> textStyles_;
};

/// The name of the token that holds a text style's color (`body-color` for `body`).
std::string colorTokenName(const StyleGuide::Token<ProjectTextStyle>& style);

/// The forms the guide's tokens are written in.
enum class TokenFormat {
  dtcg,    ///< a Design Tokens Community Group (2025.10) JSON document
  css,     ///< custom properties in a `:root` rule
  swift,   ///< SwiftUI `Color` and `Font` extensions
  kotlin,  ///< Jetpack Compose `Color` and `TextStyle` values
};

/// How the tokens are written.
struct TokenOptions {
  /// The scale the design was drawn at: every length (font sizes, line heights, letter
  /// spacings) is divided by it. 1x: one unit is one px, pt or sp.
  Density density = Density::_1x;
  /// DTCG: indented two spaces a level, one member a line. Otherwise compact.
  bool pretty = false;
};

/// The guide's tokens in `format`, ending with a line break.
///
/// DTCG: groups by the path's parts; a color is `{"$type":"color","$value":{"colorSpace":"srgb",
/// "components":[R,G,B],"alpha":A,"hex":"#rrggbb"}}` (alpha left out when 1); a text style a
/// typography token with all five members (family, weight, size and letter spacing in px, the
/// line height as a ratio to the size), what the style lacks as CSS computes it (letter spacing
/// 0, line height 1.2); a text style's color a color token beside it. A name that is also a
/// group is that group's `$root` token.
std::string writeTokens(const StyleGuide& guide, TokenFormat format,
                        const TokenOptions& options = {});

}  // namespace orvane::handoff
