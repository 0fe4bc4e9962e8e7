// The one color value of the library.
#pragma once

#include <string_view>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/Ref.hpp>

namespace orvane {

/// Red, green, blue and alpha, stored exactly as set or read: no range is imposed.
class Color {
 public:
  struct CodingKeys {
    static constexpr std::string_view red = "r";
    static constexpr std::string_view green = "g";
    static constexpr std::string_view blue = "b";
    static constexpr std::string_view alpha = "a";
  };

  Color(Passkey<Color>, double red, double green, double blue, double alpha)
      : Color(red, green, blue, alpha) {}
  virtual ~Color() = default;

  static Ref<Color> make(double red, double green, double blue, double alpha);
  static Ref<Color> decode(const Decoder& decoder);
  virtual void encode(Encoder& encoder) const;
  virtual void visitFields(FieldVisitor& v) const;

  double red() const { return red_; }
  void setRed(double value) { red_ = value; }
  double green() const { return green_; }
  void setGreen(double value) { green_ = value; }
  double blue() const { return blue_; }
  void setBlue(double value) { blue_ = value; }
  double alpha() const { return alpha_; }
  void setAlpha(double value) { alpha_ = value; }

 protected:
  Color(double red, double green, double blue, double alpha)
      : red_(red), green_(green), blue_(blue), alpha_(alpha) {}
  Color(const Color&) = default;
  Color& operator=(const Color&) = default;

  /// Reads "r", "g", "b", "a" from the decoder's object into this color; a subclass hands its
  /// own decoder here so that the components stand beside its members.
  void decodeComponents(const Decoder& decoder);

 private:
  double red_;
  double green_;
  double blue_;
  double alpha_;
};

}  // namespace orvane
