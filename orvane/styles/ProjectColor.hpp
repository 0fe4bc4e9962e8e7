// A named color of a project's style guide.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/values/Color.hpp>
#include <orvane/values/Identifier.hpp>

namespace orvane {

/// A color with the service's identifier and a display name, coded in one object beside the
/// color's own members. It is made only with its own `make` or by decoding: the plain color's
/// `make` would leave it without identity.
class ProjectColor : public Color {
 public:
  struct ProjectColorCodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view name = "name";
  };

  class Partial;

  ProjectColor(Passkey<ProjectColor>, Identifier identifier, std::string name, double red,
               double green, double blue, double alpha)
      : Color(red, green, blue, alpha),
        identifier_(std::move(identifier)),
        name_(std::move(name)) {}

  static Ref<ProjectColor> make(std::string name, double red, double green, double blue,
                                double alpha, Identifier identifier = Identifier::local());
  static Ref<ProjectColor> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const override;
  void visitFields(FieldVisitor& v) const override;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  const std::string& name() const { return name_; }
  void setName(std::string value) { name_ = std::move(value); }

 private:
  Identifier identifier_;
  std::string name_;
};

/// The decode-only subset of a project color; every member optional.
class ProjectColor::Partial {
 public:
  static Partial decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const;

  const std::optional<Identifier>& identifier() const { return identifier_; }
  const std::optional<std::string>& name() const { return name_; }
  const std::optional<double>& red() const { return red_; }
  const std::optional<double>& green() const { return green_; }
  const std::optional<double>& blue() const { return blue_; }
  const std::optional<double>& alpha() const { return alpha_; }

 private:
  Partial() = default;

  std::optional<Identifier> identifier_;
  std::optional<std::string> name_;
  std::optional<double> red_;
  std::optional<double> green_;
  std::optional<double> blue_;
  std::optional<double> alpha_;
};

}  // namespace orvane
