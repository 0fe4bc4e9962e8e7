// A blur of a layer or of what lies behind it.
#pragma once

#include <optional>
#include <string_view>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>

namespace orvane {

class Blur {
 public:
  enum class Kind { gaussian, background };

  struct CodingKeys {
    static constexpr std::string_view kind = "type";
    static constexpr std::string_view radius = "radius";
  };

  Blur(Passkey<Blur>, std::optional<Kind> kind, double radius) : kind_(kind), radius_(radius) {}

  static Ref<Blur> make(std::optional<Kind> kind, double radius);
  static Ref<Blur> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  std::optional<Kind> kind() const { return kind_; }
  void setKind(std::optional<Kind> value) { kind_ = value; }
  double radius() const { return radius_; }
  void setRadius(double value) { radius_ = value; }

 private:
  std::optional<Kind> kind_;
  double radius_;
};

template <>
struct EnumTraits<Blur::Kind> {
  static constexpr std::string_view typeName = "Kind";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Blur::Kind>, 2> cases{{
      {Blur::Kind::gaussian, "gaussian", "gaussian"},
      {Blur::Kind::background, "background", "background"},
  }};
};

}  // namespace orvane
