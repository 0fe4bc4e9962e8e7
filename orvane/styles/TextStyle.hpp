// How a run of text is set.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/values/Color.hpp>
#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>

namespace orvane {

/// Font, size, line height, letter spacing, color and alignment.
class TextStyle {
 public:
  enum class Alignment { left, center, right, justify };

  struct CodingKeys {
    static constexpr std::string_view fontName = "fontFace";
    static constexpr std::string_view fontSize = "fontSize";
    static constexpr std::string_view lineHeight = "lineHeight";
    static constexpr std::string_view letterSpacing = "letterSpacing";
    static constexpr std::string_view color = "color";
    static constexpr std::string_view alignment = "textAlign";
  };

  TextStyle(Passkey<TextStyle>, std::string fontName, double fontSize,
            std::optional<double> lineHeight, std::optional<double> letterSpacing,
            Ref<Color> color, std::optional<Alignment> alignment)
      : TextStyle(std::move(fontName), fontSize, lineHeight, letterSpacing, std::move(color),
                  alignment) {}
  virtual ~TextStyle() = default;

  static Ref<TextStyle> make(std::string fontName, double fontSize,
                             std::optional<double> lineHeight, std::optional<double> letterSpacing,
                             Ref<Color> color, std::optional<Alignment> alignment);
  static Ref<TextStyle> decode(const Decoder& decoder);
  virtual void encode(Encoder& encoder) const;
  virtual void visitFields(FieldVisitor& v) const;

  const std::string& fontName() const { return fontName_; }
  void setFontName(std::string value) { fontName_ = std::move(value); }
  double fontSize() const { return fontSize_; }
  void setFontSize(double value) { fontSize_ = value; }
  std::optional<double> lineHeight() const { return lineHeight_; }
  void setLineHeight(std::optional<double> value) { lineHeight_ = value; }
  std::optional<double> letterSpacing() const { return letterSpacing_; }
  void setLetterSpacing(std::optional<double> value) { letterSpacing_ = value; }
  const Ref<Color>& color() const { return color_; }
  void setColor(Ref<Color> value) { color_ = std::move(value); }
  std::optional<Alignment> alignment() const { return alignment_; }
  void setAlignment(std::optional<Alignment> value) { alignment_ = value; }

 protected:
  TextStyle(std::string fontName, double fontSize, std::optional<double> lineHeight,
            std::optional<double> letterSpacing, Ref<Color> color,
            std::optional<Alignment> alignment)
      : fontName_(std::move(fontName)),
        fontSize_(fontSize),
        lineHeight_(lineHeight),
        letterSpacing_(letterSpacing),
        color_(std::move(color)),
        alignment_(alignment) {}
  TextStyle(const TextStyle&) = default;
  TextStyle& operator=(const TextStyle&) = default;

  /// Reads the text style's members from the decoder's object into this style; a subclass
  /// hands its own decoder here so that they stand beside its members.
  void decodeStyle(const Decoder& decoder);

 private:
  std::string fontName_;
  double fontSize_;
  std::optional<double> lineHeight_;
  std::optional<double> letterSpacing_;
  Ref<Color> color_;
  std::optional<Alignment> alignment_;
};

template <>
struct EnumTraits<TextStyle::Alignment> {
  static constexpr std::string_view typeName = "Alignment";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<TextStyle::Alignment>, 4> cases{{
      {TextStyle::Alignment::left, "left", "left"},
      {TextStyle::Alignment::center, "center", "center"},
      {TextStyle::Alignment::right, "right", "right"},
      {TextStyle::Alignment::justify, "justify", "justify"},
  }};
};

}  // namespace orvane
