// One color stop of a gradient.
#pragma once

#include <string_view>

#include <orvane/values/Color.hpp>
#include <orvane/styles/Gradient.hpp>

namespace orvane {

class Gradient::Stop {
 public:
  struct CodingKeys {
    static constexpr std::string_view position = "position";
    static constexpr std::string_view color = "color";
  };

  Stop(Passkey<Stop>, double position, Ref<Color> color)
      : position_(position), color_(std::move(color)) {}

  static Ref<Stop> make(double position, Ref<Color> color);
  static Ref<Stop> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  double position() const { return position_; }
  void setPosition(double value) { position_ = value; }
  const Ref<Color>& color() const { return color_; }
  void setColor(Ref<Color> value) { color_ = std::move(value); }

 private:
  double position_;
  Ref<Color> color_;
};

}  // namespace orvane
