#include <orvane/project/Project.hpp>

#include <algorithm>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Project, ORVANE_PROJECT_FIELDS, wire)

void Project::decodeIcon(const Decoder&, const KeyedDecodingContainer& c) {
  icon_ = c.nestedContainer(CodingKeys::icon).decodeTolerant<Icon>(IconCodingKeys::kind);
}

void Project::encodeIcon(KeyedEncodingContainer& c) const {
  auto icon = c.nestedContainer(CodingKeys::icon);
  icon.encodeIfPresent(IconCodingKeys::kind, icon_);
}

// An object always: reading requires one, whether or not it names an icon.
void Project::documentIcon(KeyedEncodingContainer& c) const {
  encodeIcon(c);
}

void Project::describeIcon(SchemaVisitor& v) {
  static constexpr Shape object = Shape::object([](SchemaVisitor& icon) {
    icon.member({IconCodingKeys::kind, SchemaRead::tolerant, "icon"}, Schema<Icon>::shape);
  });
  v.member({CodingKeys::icon, SchemaRead::required, "icon"}, object);
}

void Project::decodeUpdateDate(const Decoder&, const KeyedDecodingContainer& c) {
  updateDate_ = c.decodeDateIfPresent(CodingKeys::updateDate).value_or(createDate_);
}

void Project::documentUpdateDate(KeyedEncodingContainer& c) const {
  c.encode(CodingKeys::updateDate, updateDate_);
}

void Project::describeUpdateDate(SchemaVisitor& v) {
  v.member({.key = CodingKeys::updateDate,
            .read = SchemaRead::orEmpty,
            .field = "updateDate",
            .whenAbsent = "the creation date"},
           Schema<Date>::shape);
}

// Later screens replace earlier ones with the same identifier; the dropped ones are released
// with the list and never wired.
void Project::decodeScreensByIdentifier(const Decoder&, const KeyedDecodingContainer& c) {
  auto screens = c.decodeIfPresent<std::vector<Ref<Screen>>>(CodingKeys::screensByIdentifier);
  if (!screens) return;
  ScreensByIdentifier filed;
  filed.reserve(screens->size());
  for (auto& screen : *screens) {
    const Identifier& id = screen->identifier();
    filed.insert_or_assign(id, std::move(screen));
  }
  screensByIdentifier_ = std::move(filed);
}

// In the order of their identifiers: the dictionary keeps none, and the text must not change
// from one writing to the next.
void Project::documentScreensByIdentifier(KeyedEncodingContainer& c) const {
  if (!screensByIdentifier_) return;
  std::vector<const ScreensByIdentifier::value_type*> entries;
  entries.reserve(screensByIdentifier_->size());
  for (const auto& entry : *screensByIdentifier_) entries.push_back(&entry);
  std::sort(entries.begin(), entries.end(),
            [](const auto* a, const auto* b) { return a->first.rawValue() < b->first.rawValue(); });
  auto screens = c.nestedUnkeyedContainer(CodingKeys::screensByIdentifier);
  for (const auto* entry : entries) screens.encode(entry->second);
}

void Project::describeScreensByIdentifier(SchemaVisitor& v) {
  v.member({.key = CodingKeys::screensByIdentifier,
            .read = SchemaRead::optional,
            .field = "screensByIdentifier",
            .remark = "Filed by identifier: a later screen with the identifier of an earlier one "
                      "replaces it."},
           Schema<std::vector<Ref<Screen>>>::shape);
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

void describe(FieldVisitor& v, const Project::ScreensByIdentifier& screens) {
  std::vector<const Project::ScreensByIdentifier::value_type*> entries;
  entries.reserve(screens.size());
  for (const auto& entry : screens) entries.push_back(&entry);
  std::sort(entries.begin(), entries.end(),
            [](const auto* a, const auto* b) { return a->first.rawValue() < b->first.rawValue(); });
  v.beginObject();
  for (const auto* entry : entries) {
    v.key(entry->first.rawValue());
    describe(v, entry->second);
  }
  v.endObject();
}

void Project::CandidateTextStyle::visitFields(FieldVisitor& v) const {
  v.field("name", name);
  v.field("sourceIdentifier", sourceIdentifier);
  v.field("textStyle", textStyle);
}

ORVANE_PARTIAL_DEFINE(Project, ORVANE_PROJECT_PARTIAL_FIELDS)

}  // namespace orvane
