// A named text style of a project's style guide.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/values/Identifier.hpp>
#include <orvane/styles/TextStyle.hpp>

namespace orvane {

/// A text style with the service's identifier, a display name and the identifier of the style
/// in the source document it was taken from, coded in one object beside the style's members.
/// Made only with its own `make` or by decoding.
class ProjectTextStyle : public TextStyle {
 public:
  struct ProjectTextStyleCodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view name = "name";
    static constexpr std::string_view sourceIdentifier = "sourceId";
  };

  class Partial;

  ProjectTextStyle(Passkey<ProjectTextStyle>, Identifier identifier, std::string name,
                   std::optional<Identifier> sourceIdentifier, std::string fontName,
                   double fontSize, std::optional<double> lineHeight,
                   std::optional<double> letterSpacing, Ref<Color> color,
                   std::optional<Alignment> alignment)
      : TextStyle(std::move(fontName), fontSize, lineHeight, letterSpacing, std::move(color),
                  alignment),
        identifier_(std::move(identifier)),
        name_(std::move(name)),
        sourceIdentifier_(std::move(sourceIdentifier)) {}

  static Ref<ProjectTextStyle> make(std::string name, std::optional<Identifier> sourceIdentifier,
                                    std::string fontName, double fontSize,
                                    std::optional<double> lineHeight,
                                    std::optional<double> letterSpacing, Ref<Color> color,
                                    std::optional<Alignment> alignment,
                                    Identifier identifier = Identifier::local());
  static Ref<ProjectTextStyle> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const override;
  void visitFields(FieldVisitor& v) const override;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  const std::string& name() const { return name_; }
  void setName(std::string value) { name_ = std::move(value); }
  const std::optional<Identifier>& sourceIdentifier() const { return sourceIdentifier_; }
  void setSourceIdentifier(std::optional<Identifier> value) {
    sourceIdentifier_ = std::move(value);
  }

 private:
  Identifier identifier_;
  std::string name_;
  std::optional<Identifier> sourceIdentifier_;
};

/// The decode-only subset of a project text style.
class ProjectTextStyle::Partial {
 public:
  static Partial decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const;

  const std::optional<Identifier>& identifier() const { return identifier_; }
  const std::optional<std::string>& name() const { return name_; }
  const Ref<Color>& color() const { return color_; }

 private:
  Partial() = default;

  std::optional<Identifier> identifier_;
  std::optional<std::string> name_;
  Ref<Color> color_;
};

}  // namespace orvane
