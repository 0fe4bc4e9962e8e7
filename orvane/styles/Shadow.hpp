// A colored shadow cast inside or outside a layer.
#pragma once

#include <optional>
#include <string_view>

#include <orvane/coding/Color.hpp>
#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>

namespace orvane {

class Shadow {
 public:
  enum class Kind { inner, outer };

  struct CodingKeys {
    static constexpr std::string_view kind = "type";
    static constexpr std::string_view x = "offsetX";
    static constexpr std::string_view y = "offsetY";
    static constexpr std::string_view blurRadius = "blurRadius";
    static constexpr std::string_view spread = "spread";
    static constexpr std::string_view color = "color";
  };

  Shadow(Passkey<Shadow>, std::optional<Kind> kind, double x, double y, double blurRadius,
         double spread, Ref<Color> color)
      : kind_(kind), x_(x), y_(y), blurRadius_(blurRadius), spread_(spread), color_(std::move(color)) {}

  static Ref<Shadow> make(std::optional<Kind> kind, double x, double y, double blurRadius,
                          double spread, Ref<Color> color);
  static Ref<Shadow> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  std::optional<Kind> kind() const { return kind_; }
  void setKind(std::optional<Kind> value) { kind_ = value; }
  double x() const { return x_; }
  void setX(double value) { x_ = value; }
  double y() const { return y_; }
  void setY(double value) { y_ = value; }
  double blurRadius() const { return blurRadius_; }
  void setBlurRadius(double value) { blurRadius_ = value; }
  double spread() const { return spread_; }
  void setSpread(double value) { spread_ = value; }
  const Ref<Color>& color() const { return color_; }
  void setColor(Ref<Color> value) { color_ = std::move(value); }

 private:
  std::optional<Kind> kind_;
  double x_;
  double y_;
  double blurRadius_;
  double spread_;
  Ref<Color> color_;
};

template <>
struct EnumTraits<Shadow::Kind> {
  static constexpr std::string_view typeName = "Kind";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Shadow::Kind>, 2> cases{{
      {Shadow::Kind::inner, "inner", "inner"},
      {Shadow::Kind::outer, "outer", "outer"},
  }};
};

}  // namespace orvane
