// A color gradient between two points.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Geometry.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>

namespace orvane {

/// A kind, two end points, an optional angle and scale, and color stops in document order.
class Gradient {
 public:
  enum class Kind { linear, radial, angular };
  class Stop;

  struct CodingKeys {
    static constexpr std::string_view kind = "type";
    static constexpr std::string_view from = "from";
    static constexpr std::string_view to = "to";
    static constexpr std::string_view angle = "angle";
    static constexpr std::string_view scale = "scale";
    static constexpr std::string_view stops = "colorStops";
  };

  Gradient(Passkey<Gradient>, std::optional<Kind> kind, Point from, Point to,
           std::optional<double> angle, std::optional<double> scale, std::vector<Ref<Stop>> stops);

  static Ref<Gradient> make(std::optional<Kind> kind, Point from, Point to,
                            std::optional<double> angle, std::optional<double> scale,
                            std::vector<Ref<Stop>> stops);
  static Ref<Gradient> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  std::optional<Kind> kind() const { return kind_; }
  void setKind(std::optional<Kind> value) { kind_ = value; }
  Point from() const { return from_; }
  void setFrom(Point value) { from_ = value; }
  Point to() const { return to_; }
  void setTo(Point value) { to_ = value; }
  std::optional<double> angle() const { return angle_; }
  void setAngle(std::optional<double> value) { angle_ = value; }
  std::optional<double> scale() const { return scale_; }
  void setScale(std::optional<double> value) { scale_ = value; }
  const std::vector<Ref<Stop>>& stops() const { return stops_; }
  void setStops(std::vector<Ref<Stop>> value) { stops_ = std::move(value); }

 private:
  std::optional<Kind> kind_;
  Point from_;
  Point to_;
  std::optional<double> angle_;
  std::optional<double> scale_;
  std::vector<Ref<Stop>> stops_;
};

template <>
struct EnumTraits<Gradient::Kind> {
  static constexpr std::string_view typeName = "Kind";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Gradient::Kind>, 3> cases{{
      {Gradient::Kind::linear, "linear", "linear"},
      {Gradient::Kind::radial, "radial", "radial"},
      {Gradient::Kind::angular, "angular", "angular"},
  }};
};

}  // namespace orvane

// The stop completes the gradient: whoever reads a gradient's stops needs it.
#include <orvane/styles/Gradient+Stop.hpp>
