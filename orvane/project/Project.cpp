#include <orvane/project/Project.hpp>

#include <algorithm>
#include <orvane/internal/MakeRef.hpp>

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

Ref<Project> Project::make(std::optional<Status> status, std::string name, std::optional<Icon> icon,
                           Date updateDate, std::optional<Kind> kind,
                           std::optional<Density> density, std::optional<bool> isPublic,
                           std::optional<std::vector<Ref<Section>>> sections,
                           std::optional<ScreensByIdentifier> screensByIdentifier,
                           std::optional<std::vector<Ref<ProjectColor>>> colors,
                           std::optional<std::vector<Ref<ProjectTextStyle>>> textStyles,
                           std::optional<std::vector<Ref<ComponentSection>>> componentSections,
                           std::vector<Ref<ProjectUser>> users, std::optional<Url> thumbnailURL,
                           Ref<Integration> integration, Identifier identifier,
                           std::string description, Date createDate) {
  auto project = makeRef<Project>(
      Passkey<Project>{},
      Header{std::move(identifier), status, std::move(name), std::move(description), icon,
             createDate, updateDate, kind, density, isPublic, std::move(thumbnailURL)});
  project->sections_ = std::move(sections);
  project->screensByIdentifier_ = std::move(screensByIdentifier);
  project->colors_ = std::move(colors);
  project->textStyles_ = std::move(textStyles);
  project->componentSections_ = std::move(componentSections);
  project->users_ = std::move(users);
  project->integration_ = std::move(integration);
  project->wire();
  return project;
}

namespace {

// Later screens replace earlier ones with the same identifier; the dropped ones are released
// with the list and never wired.
Project::ScreensByIdentifier fileScreens(std::vector<Ref<Screen>> screens) {
  Project::ScreensByIdentifier filed;
  filed.reserve(screens.size());
  for (auto& screen : screens) {
    const Identifier& id = screen->identifier();
    filed.insert_or_assign(id, std::move(screen));
  }
  return filed;
}

}  // namespace

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
  auto sections = c.decodeIfPresent<std::vector<Ref<Section>>>(K::sections);
  auto screens = c.decodeIfPresent<std::vector<Ref<Screen>>>(K::screens);
  auto colors = c.decodeIfPresent<std::vector<Ref<ProjectColor>>>(K::colors);
  auto textStyles = c.decodeIfPresent<std::vector<Ref<ProjectTextStyle>>>(K::textStyles);
  auto componentSections =
      c.decodeIfPresent<std::vector<Ref<ComponentSection>>>(K::componentSections);
  auto users = c.decode<std::vector<Ref<ProjectUser>>>(K::users);
  h.thumbnailURL = c.decodeUrlIfPresent(K::thumbnailURL);
  auto integration = c.decodeIfPresent<Ref<Integration>>(K::integration);

  auto project = makeRef<Project>(Passkey<Project>{}, std::move(h));
  project->sections_ = std::move(sections);
  if (screens) project->screensByIdentifier_ = fileScreens(std::move(*screens));
  project->colors_ = std::move(colors);
  project->textStyles_ = std::move(textStyles);
  project->componentSections_ = std::move(componentSections);
  project->users_ = std::move(users);
  project->integration_ = std::move(integration);
  project->wire();
  return project;
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

void Project::wire() {
  wireSections();
  wireScreens();
  wireComponentSections();
  wireUsers();
}

void Project::wireSections() {
  if (!sections_) return;
  auto self = shared_from_this();
  for (const auto& section : *sections_) section->setProject(self);
}

void Project::wireScreens() {
  if (!screensByIdentifier_) return;
  auto self = shared_from_this();
  for (const auto& [id, screen] : *screensByIdentifier_) screen->setProject(self);
}

void Project::wireComponentSections() {
  if (!componentSections_) return;
  auto self = shared_from_this();
  // Each section hands the project down its own subtree.
  for (const auto& section : *componentSections_) section->setProject(self);
}

void Project::wireUsers() {
  auto self = shared_from_this();
  for (const auto& user : users_) user->setProject(self);
}

void Project::setSections(std::optional<std::vector<Ref<Section>>> value) {
  sections_ = std::move(value);
  wireSections();
}

void Project::setScreensByIdentifier(std::optional<ScreensByIdentifier> value) {
  screensByIdentifier_ = std::move(value);
  wireScreens();
}

void Project::setComponentSections(std::optional<std::vector<Ref<ComponentSection>>> value) {
  componentSections_ = std::move(value);
  wireComponentSections();
}

void Project::setUsers(std::vector<Ref<ProjectUser>> value) {
  users_ = std::move(value);
  wireUsers();
}

void Project::setCandidateTextStyles(std::optional<std::vector<CandidateTextStyle>> value) {
  candidateTextStyles_ = std::move(value);
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
  v.field("sections", sections_);
  v.key("screensByIdentifier");
  if (screensByIdentifier_) {
    // The dictionary keeps no order; the dump sorts by identifier so that it is stable.
    std::vector<const ScreensByIdentifier::value_type*> entries;
    entries.reserve(screensByIdentifier_->size());
    for (const auto& entry : *screensByIdentifier_) entries.push_back(&entry);
    std::sort(entries.begin(), entries.end(), [](const auto* a, const auto* b) {
      return a->first.rawValue() < b->first.rawValue();
    });
    v.beginObject();
    for (const auto* entry : entries) {
      v.key(entry->first.rawValue());
      describe(v, entry->second);
    }
    v.endObject();
  } else {
    v.null();
  }
  v.field("colors", colors_);
  v.field("textStyles", textStyles_);
  v.field("componentSections", componentSections_);
  v.field("users", users_);
  v.field("thumbnailURL", thumbnailURL_);
  v.field("integration", integration_);
  v.field("extensions", extensions_);
  v.field("candidateTextStyles", candidateTextStyles_);
  v.field("candidateColors", candidateColors_);
  v.field("organization", organization_);
  v.field("emojis", emojis_);
  v.field("localExtensions", localExtensions_);
}

void Project::CandidateTextStyle::visitFields(FieldVisitor& v) const {
  v.field("name", name);
  v.field("sourceIdentifier", sourceIdentifier);
  v.field("textStyle", textStyle);
}

Project::Partial Project::Partial::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  Partial p;
  p.identifier_ = c.decodeIfPresent<Identifier>(K::identifier);
  p.status_ = c.decodeTolerant<Status>(K::status);
  p.name_ = c.decodeStringIfPresent(K::name);
  p.description_ = c.decodeStringIfPresent(K::description);
  p.createDate_ = c.decodeDateIfPresent(K::createDate);
  p.updateDate_ = c.decodeDateIfPresent(K::updateDate);
  p.density_ = c.decodeTolerant<Density>(K::density);
  p.isPublic_ = c.decodeBoolIfPresent(K::isPublic);
  p.users_ = c.decodeIfPresent<std::vector<ProjectUser::Partial>>(K::users);
  p.thumbnailURL_ = c.decodeUrlIfPresent(K::thumbnailURL);
  return p;
}

void Project::Partial::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("status", status_);
  v.field("name", name_);
  v.field("description", description_);
  v.field("createDate", createDate_);
  v.field("updateDate", updateDate_);
  v.field("density", density_);
  v.field("isPublic", isPublic_);
  v.field("users", users_);
  v.field("thumbnailURL", thumbnailURL_);
}

}  // namespace orvane
