// A stroke along a layer's outline.
#pragma once

#include <optional>
#include <string_view>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/styles/Fill.hpp>

namespace orvane {

/// A stroke of a given thickness and position, painted with a fill whose members stand in the
/// border's own object rather than under a key of their own.
class Border {
 public:
  enum class Position { center, inside, outside };

  struct CodingKeys {
    static constexpr std::string_view position = "position";
    static constexpr std::string_view thickness = "thickness";
  };

  Border(Passkey<Border>, std::optional<Position> position, double thickness, Ref<Fill> fill)
      : position_(position), thickness_(thickness), fill_(std::move(fill)) {}

  static Ref<Border> make(std::optional<Position> position, double thickness, Ref<Fill> fill);
  static Ref<Border> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  std::optional<Position> position() const { return position_; }
  void setPosition(std::optional<Position> value) { position_ = value; }
  double thickness() const { return thickness_; }
  void setThickness(double value) { thickness_ = value; }
  const Ref<Fill>& fill() const { return fill_; }
  void setFill(Ref<Fill> value) { fill_ = std::move(value); }

 private:
  std::optional<Position> position_;
  double thickness_;
  Ref<Fill> fill_;
};

template <>
struct EnumTraits<Border::Position> {
  static constexpr std::string_view typeName = "Position";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Border::Position>, 3> cases{{
      {Border::Position::center, "center", "center"},
      {Border::Position::inside, "inside", "inside"},
      {Border::Position::outside, "outside", "outside"},
  }};
};

}  // namespace orvane
