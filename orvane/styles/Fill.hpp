// What an area is painted with: a solid color or a gradient.
#pragma once

#include <optional>
#include <string_view>
#include <variant>

#include <orvane/values/BlendMode.hpp>
#include <orvane/values/Color.hpp>
#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/styles/Gradient.hpp>

namespace orvane {

/// A color or gradient at an optional opacity and with an optional blend mode.
class Fill {
 public:
  /// The paint. Its case is named by "fillType" and its payload stands under the case's name.
  class Kind {
   public:
    enum class Key { color, gradient };
    struct Color {
      Ref<orvane::Color> color;
    };
    struct Gradient {
      Ref<orvane::Gradient> gradient;
    };

    static Kind color(Ref<orvane::Color> color) { return Kind(Color{std::move(color)}); }
    static Kind gradient(Ref<orvane::Gradient> gradient) {
      return Kind(Gradient{std::move(gradient)});
    }

    Key key() const { return std::holds_alternative<Color>(value_) ? Key::color : Key::gradient; }
    /// The payload of the case, or null for the other case.
    const Color* asColor() const { return std::get_if<Color>(&value_); }
    const Gradient* asGradient() const { return std::get_if<Gradient>(&value_); }
    void visitFields(FieldVisitor& v) const;

   private:
    explicit Kind(std::variant<Color, Gradient> value) : value_(std::move(value)) {}
    std::variant<Color, Gradient> value_;
  };

  struct CodingKeys {
    static constexpr std::string_view kind = "fillType";
    static constexpr std::string_view color = "color";
    static constexpr std::string_view gradient = "gradient";
    static constexpr std::string_view opacity = "opacity";
    static constexpr std::string_view blendMode = "blendMode";
  };

  Fill(Passkey<Fill>, std::optional<Kind> kind, std::optional<double> opacity,
       std::optional<BlendMode> blendMode)
      : kind_(std::move(kind)), opacity_(opacity), blendMode_(blendMode) {}

  static Ref<Fill> make(std::optional<Kind> kind, std::optional<double> opacity,
                        std::optional<BlendMode> blendMode);
  static Ref<Fill> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const std::optional<Kind>& kind() const { return kind_; }
  void setKind(std::optional<Kind> value) { kind_ = std::move(value); }
  std::optional<double> opacity() const { return opacity_; }
  void setOpacity(std::optional<double> value) { opacity_ = value; }
  std::optional<BlendMode> blendMode() const { return blendMode_; }
  void setBlendMode(std::optional<BlendMode> value) { blendMode_ = value; }

 private:
  std::optional<Kind> kind_;
  std::optional<double> opacity_;
  std::optional<BlendMode> blendMode_;
};

template <>
struct EnumTraits<Fill::Kind::Key> {
  static constexpr std::string_view typeName = "Key";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Fill::Kind::Key>, 2> cases{{
      {Fill::Kind::Key::color, "color", "color"},
      {Fill::Kind::Key::gradient, "gradient", "gradient"},
  }};
};

}  // namespace orvane
