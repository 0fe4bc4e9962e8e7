// A named text style of a project's style guide.
#pragma once

#include <optional>
#include <string>

#include <orvane/values/Identifier.hpp>
#include <orvane/styles/TextStyle.hpp>

namespace orvane {

/// A text style with the service's identifier, a display name and the identifier of the style
/// in the source document it was taken from, coded in one object beside the style's members.
/// Made only with its own `make` or by decoding.
class ProjectTextStyle : public TextStyle {
 public:
  // The style's members are the base's; `make` takes them by hand-written `Fields` because
  // designated initializers cannot reach a base's members.
#define ORVANE_PROJECT_TEXT_STYLE_FIELDS(F)                                                    \
  F(identifier, Identifier, Identifier, "_id", required, never, none, plain)                \
  F(name, Name, std::string, "name", required, always, none, plain)                         \
  F(sourceIdentifier, SourceIdentifier, std::optional<Identifier>, "sourceId", optional,    \
    whenPresent, none, plain)
  /// The document keys of the project text style's own fields.
  struct CodingKeys {
    ORVANE_PROJECT_TEXT_STYLE_FIELDS(ORVANE_FIELD_KEY)
  };
  /// What `make` takes, in this order, with its defaults.
  struct Fields {
    Identifier identifier = Identifier::local();
    Required<std::string> name;
    Required<std::optional<Identifier>> sourceIdentifier;
    Required<std::string> fontName;
    Required<double> fontSize;
    Required<std::optional<double>> lineHeight;
    Required<std::optional<double>> letterSpacing;
    Required<Ref<orvane::Color>> color;
    Required<std::optional<Alignment>> alignment;
  };

  class Partial;

  explicit ProjectTextStyle(Passkey<ProjectTextStyle>) {}

  /// Hides the plain style's `make`, which would leave a project text style without identity.
  static Ref<ProjectTextStyle> make(Fields fields);
  static Ref<ProjectTextStyle> decode(const Decoder& decoder);
  /// Writes the name and source, then the style; the identifier stays out: the service
  /// assigns it.
  void encode(Encoder& encoder) const override;
  /// The style's members, then the project text style's own fields.
  void visitFields(FieldVisitor& visitor) const override;

  ORVANE_PROJECT_TEXT_STYLE_FIELDS(ORVANE_FIELD_ACCESSORS)

 private:
  void decodeOwnFields(const Decoder& decoder, const KeyedDecodingContainer& c);

  ORVANE_PROJECT_TEXT_STYLE_FIELDS(ORVANE_FIELD_MEMBER)
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
