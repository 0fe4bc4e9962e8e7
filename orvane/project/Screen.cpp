#include <orvane/project/Screen.hpp>

#include <orvane/project/Project.hpp>
#include <orvane/internal/MakeRef.hpp>
#include <orvane/internal/FatalError.hpp>

namespace orvane {

Ref<Screen> Screen::make(std::string name, Ref<Version> latestVersion,
                         std::optional<Identifier> sourceIdentifier,
                         std::optional<std::vector<std::string>> tags,
                         std::optional<std::vector<Ref<Version>>> versions,
                         std::optional<std::vector<Ref<Dot>>> dots, Identifier identifier,
                         std::string description) {
  auto screen = makeRef<Screen>(
      Passkey<Screen>{},
      Fields{std::move(identifier), std::move(name), std::move(description),
             std::move(latestVersion), std::move(sourceIdentifier), std::move(tags),
             std::move(versions)},
      std::move(dots));
  screen->wireVersions();
  screen->wireDots();
  return screen;
}

Ref<Screen> Screen::decode(const Decoder& decoder) {
  // The screen's own object first: a document that is no object fails before anything is read.
  auto own = decoder.container();
  auto fields = decodeFields(decoder);
  auto dots = own.decodeIfPresent<std::vector<Ref<Dot>>>(ScreenCodingKeys::dots);
  auto screen = makeRef<Screen>(Passkey<Screen>{}, std::move(fields), std::move(dots));
  screen->wireVersions();
  screen->wireDots();
  return screen;
}

void Screen::encode(Encoder& encoder) const {
  encoder.container().encodeIfPresent(ScreenCodingKeys::dots, dots_);
  VersionCollection::encode(encoder);
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

void Screen::wireDots() {
  if (!dots_) return;
  auto self = std::static_pointer_cast<Screen>(shared_from_this());
  for (const auto& dot : *dots_) {
    if (dot) dot->setScreen(self);
  }
}

void Screen::visitFields(FieldVisitor& v) const {
  visitCollectionFields(v);
  v.field("dots", dots_);
  visitPaths(v);
}

Screen::Partial Screen::Partial::decode(const Decoder& decoder) {
  Partial p;
  p.read(decoder);
  return p;
}

}  // namespace orvane
