#include <orvane/project/Component.hpp>

#include <orvane/project/ComponentSection.hpp>

#include <orvane/project/Project.hpp>
#include <orvane/internal/MakeRef.hpp>
#include <orvane/internal/FatalError.hpp>

namespace orvane {

namespace {
constexpr std::string_view kSourceFile = "Sources/Component";
}  // namespace

Ref<Component> Component::make(Identifier identifier, std::string name, std::string description,
                               Ref<Version> latestVersion,
                               std::optional<Identifier> sourceIdentifier,
                               std::optional<std::vector<std::string>> tags,
                               std::optional<std::vector<Ref<Version>>> versions) {
  auto component = makeRef<Component>(
      Passkey<Component>{}, Fields{std::move(identifier), std::move(name), std::move(description),
                                   std::move(latestVersion), std::move(sourceIdentifier),
                                   std::move(tags), std::move(versions)});
  component->wireVersions();
  return component;
}

Ref<Component> Component::decode(const Decoder& decoder) {
  auto component = makeRef<Component>(Passkey<Component>{}, decodeFields(decoder));
  component->wireVersions();
  return component;
}

std::string Component::pathComponent() const {
  if (auto path = pathComponentIfAvailable()) return *std::move(path);
  fatalError("Component should have section.", kSourceFile, 20);
}

std::string Component::versionsPath() const {
  auto owner = project();
  if (!owner) fatalError("VersionCollection should have project.", kSourceFile, 26);
  return "projects/" + std::string(owner->identifier().rawValue()) + "/" + pathComponent() +
         "/versions";
}

std::optional<std::string> Component::pathComponentIfAvailable() const {
  auto owner = section();
  if (!owner) return std::nullopt;
  return "componentSections/" + owner->identifierPathComponent() + "/components/" +
         std::string(identifier().rawValue());
}

std::optional<std::string> Component::versionsPathIfAvailable() const {
  auto owner = project();
  if (!owner) return std::nullopt;
  auto path = pathComponentIfAvailable();
  if (!path) return std::nullopt;
  return "projects/" + std::string(owner->identifier().rawValue()) + "/" + *path + "/versions";
}

void Component::visitFields(FieldVisitor& v) const {
  visitCollectionFields(v);
  v.field("section", section_);
  visitPaths(v);
}

Component::Partial Component::Partial::decode(const Decoder& decoder) {
  Partial p;
  p.read(decoder);
  return p;
}

}  // namespace orvane
