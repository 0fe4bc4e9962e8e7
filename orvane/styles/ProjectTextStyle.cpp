#include <orvane/styles/ProjectTextStyle.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<ProjectTextStyle> ProjectTextStyle::make(
    std::string name, std::optional<Identifier> sourceIdentifier, std::string fontName,
    double fontSize, std::optional<double> lineHeight, std::optional<double> letterSpacing,
    Ref<Color> color, std::optional<Alignment> alignment, Identifier identifier) {
  return makeRef<ProjectTextStyle>(Passkey<ProjectTextStyle>{}, std::move(identifier),
                                   std::move(name), std::move(sourceIdentifier),
                                   std::move(fontName), fontSize, lineHeight, letterSpacing,
                                   std::move(color), alignment);
}

Ref<ProjectTextStyle> ProjectTextStyle::decode(const Decoder& decoder) {
  using K = ProjectTextStyleCodingKeys;
  auto c = decoder.container();
  auto identifier = c.decode<Identifier>(K::identifier);
  auto name = c.decodeString(K::name);
  auto sourceIdentifier = c.decodeIfPresent<Identifier>(K::sourceIdentifier);
  auto style =
      makeRef<ProjectTextStyle>(Passkey<ProjectTextStyle>{}, std::move(identifier), std::move(name),
                                std::move(sourceIdentifier), std::string(), 0, std::nullopt,
                                std::nullopt, nullptr, std::nullopt);
  style->decodeStyle(decoder);
  return style;
}

void ProjectTextStyle::encode(Encoder& encoder) const {
  using K = ProjectTextStyleCodingKeys;
  // The identifier stays out: the service assigns it.
  auto c = encoder.container();
  c.encode(K::name, name_);
  c.encodeIfPresent(K::sourceIdentifier, sourceIdentifier_);
  TextStyle::encode(encoder);
}

void ProjectTextStyle::visitFields(FieldVisitor& v) const {
  TextStyle::visitFields(v);
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("sourceIdentifier", sourceIdentifier_);
}

ProjectTextStyle::Partial ProjectTextStyle::Partial::decode(const Decoder& decoder) {
  using P = ProjectTextStyleCodingKeys;
  Partial p;
  auto own = decoder.container();
  p.identifier_ = own.decodeIfPresent<Identifier>(P::identifier);
  p.name_ = own.decodeStringIfPresent(P::name);
  p.color_ = decoder.container().decodeIfPresent<Ref<Color>>(TextStyle::CodingKeys::color);
  return p;
}

void ProjectTextStyle::Partial::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("color", color_);
}

}  // namespace orvane
