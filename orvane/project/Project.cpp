#include <orvane/project/Project.hpp>

namespace orvane {

Project::Project(Passkey<Project>, Header header)
    : identifier_(std::move(header.identifier)),
      status_(header.status),
      name_(std::move(header.name)),
      description_(std::move(header.description)),
      icon_(header.icon),
      createDate_(header.createDate),
      updateDate_(header.updateDate),
      kind_(header.kind),
      density_(header.density),
      isPublic_(header.isPublic),
      thumbnailURL_(std::move(header.thumbnailURL)) {}

Ref<Project> Project::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  Header h;
  h.identifier = c.decode<Identifier>(K::identifier);
  h.status = c.decodeTolerant<Status>(K::status);
  h.name = c.decodeString(K::name);
  h.description = c.decodeStringIfPresent(K::description).value_or(std::string());
  // "icon" must be an object even though the icon inside it is optional.
  h.icon = c.nestedContainer(K::icon).decodeTolerant<Icon>(IconCodingKeys::kind);
  h.createDate = c.decodeDate(K::createDate);
  h.updateDate = c.decodeDateIfPresent(K::updateDate).value_or(h.createDate);
  h.kind = c.decodeTolerant<Kind>(K::kind);
  h.density = c.decodeTolerant<Density>(K::density);
  h.isPublic = c.decodeBoolIfPresent(K::isPublic);
  h.thumbnailURL = c.decodeUrlIfPresent(K::thumbnailURL);
  return std::make_shared<Project>(Passkey<Project>{}, std::move(h));
}

void Project::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::name, name_);
  {
    auto icon = c.nestedContainer(K::icon);
    icon.encodeIfPresent(IconCodingKeys::kind, icon_);
  }
  c.encodeIfPresent(K::kind, kind_);
  c.encodeIfPresent(K::density, density_);
  c.encodeIfPresent(K::thumbnailURL, thumbnailURL_);
}

void Project::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("status", status_);
  v.field("name", name_);
  v.field("description", description_);
  v.field("icon", icon_);
  v.field("createDate", createDate_);
  v.field("updateDate", updateDate_);
  v.field("kind", kind_);
  v.field("density", density_);
  v.field("isPublic", isPublic_);
  v.field("thumbnailURL", thumbnailURL_);
}

}  // namespace orvane
