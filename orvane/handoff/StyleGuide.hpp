// A project's style guide as named tokens: names made from the colors' and text styles' names,
// lookups of a layer's values among them, and the tokens written for each platform.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <orvane/project/Project.hpp>
#include <orvane/styles/ProjectColor.hpp>
#include <orvane/styles/ProjectTextStyle.hpp>

namespace orvane::handoff {

/// A name for code made from a design name: ASCII letters and digits, lower-cased, every other
/// run of characters as one `-`, no `-` at either end; `empty` when nothing is left, and
/// `digitPrefix` before a leading digit (`layer` and `l-` for layers, `token` and `t-` for
/// tokens).
std::string slug(std::string_view name, std::string_view empty, std::string_view digitPrefix);

/// `primary-blue` as `primaryBlue`, for languages whose names cannot hold `-`.
std::string camelCase(std::string_view slug);

/// Hands out names, each once: a name already given gets `-2`, `-3`, ... after it.
class UniqueNames {
 public:
  /// `name` if it is free, else the first free `name-N`; the result is taken.
  std::string take(const std::string& name);
  /// Whether `name` has been taken.
  bool taken(const std::string& name) const;

 private:
  std::vector<std::string> names_;
};

/// The style guide of a project, its colors then its text styles, each with a token name
/// unique among them all.
class StyleGuide {
 public:
  /// A named value of the guide.
  template <class T>
  struct Token {
    Ref<T> value;                   ///< the project's color or text style
    std::string name;               ///< unique, as `slug` makes it from the whole name
    std::vector<std::string> path;  ///< the `/`-separated parts of the name, each a slug,
                                    ///< the last made unique as `name` is
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

/// The forms the guide's tokens are written in.
enum class TokenFormat {
  dtcg,    ///< a Design Tokens Community Group (2025.10) JSON document
  css,     ///< custom properties in a `:root` rule
  swift,   ///< SwiftUI `Color` and `Font` extensions
  kotlin,  ///< Jetpack Compose `Color` and `TextStyle` values
};

/// The guide's tokens in `format`, ending with a line break. The DTCG document is compact
/// JSON, or with `pretty` a group member a line, each token on one line.
std::string writeTokens(const StyleGuide& guide, TokenFormat format, bool pretty = false);

}  // namespace orvane::handoff
