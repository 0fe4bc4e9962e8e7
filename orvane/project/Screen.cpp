#include <orvane/project/Screen.hpp>

#include <orvane/internal/FatalError.hpp>
#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Project.hpp>

namespace orvane {

ORVANE_OWN_FIELDS_DEFINE(Screen, ORVANE_SCREEN_FIELDS, ORVANE_SCREEN_MAKE)
ORVANE_RECORD_MAKE_DEFINE(Screen, wire)

Ref<Screen> Screen::decode(const Decoder& decoder) {
  // The screen's own object first: a document that is no object fails before anything is read.
  auto c = decoder.container();
  auto screen = makeRef<Screen>(Passkey<Screen>{});
  screen->decodeFields(decoder, c);
  screen->decodeOwnFields(decoder, c);
  screen->wire();
  return screen;
}

void Screen::encode(Encoder& encoder) const {
  auto c = encoder.container();
  encodeOwnFields(c);
  encodeFields(c);
}

void Screen::encodeDocument(Encoder& encoder) const {
  auto c = encoder.container();
  documentFields(c);
  documentOwnFields(c);
}

void Screen::describeSchema(SchemaVisitor& visitor) {
  visitor.membersOf(Schema<VersionCollection>::shape);
  describeOwnFields(visitor);
}

std::string Screen::pathComponent() const {
  return "screens";
}

std::string Screen::versionsPath() const {
  if (auto path = versionsPathIfAvailable()) return *std::move(path);
  fatalError("Locating project for screen failed.", "Sources/Screen", 32);
}

std::optional<std::string> Screen::pathComponentIfAvailable() const {
  return pathComponent();
}

std::optional<std::string> Screen::versionsPathIfAvailable() const {
  auto owner = project();
  if (!owner) return std::nullopt;
  return "v2/projects/" + std::string(owner->identifier().rawValue()) + "/screens/" +
         std::string(identifier().rawValue()) + "/versions";
}

void Screen::setDots(std::optional<std::vector<Ref<Dot>>> value) {
  dots_ = std::move(value);
  wireDots();
}

void Screen::wire() {
  wireVersions();
  wireDots();
}

void Screen::wireDots() {
  if (!dots_) return;
  auto self = std::static_pointer_cast<Screen>(shared_from_this());
  for (const auto& dot : *dots_) {
    if (dot) dot->setScreen(self);
  }
}

void Screen::visitFields(FieldVisitor& visitor) const {
  visitCollectionFields(visitor);
  visitOwnFields(visitor);
  visitPaths(visitor);
}

ORVANE_PARTIAL_DEFINE(Screen, ORVANE_VERSION_COLLECTION_PARTIAL_FIELDS)

}  // namespace orvane
