#include <orvane/project/Component.hpp>

#include <orvane/project/ComponentSection.hpp>

#include <orvane/internal/FatalError.hpp>
#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Project.hpp>

namespace orvane {

namespace {
constexpr std::string_view kSourceFile = "Sources/Component";
}  // namespace

ORVANE_OWN_FIELDS_DEFINE(Component, ORVANE_COMPONENT_FIELDS, ORVANE_COMPONENT_MAKE)
ORVANE_RECORD_MAKE_DEFINE(Component, wireVersions)

Ref<Component> Component::decode(const Decoder& decoder) {
  auto component = makeRef<Component>(Passkey<Component>{});
  component->decodeFields(decoder, decoder.container());
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

void Component::visitFields(FieldVisitor& visitor) const {
  visitCollectionFields(visitor);
  visitOwnFields(visitor);
  visitPaths(visitor);
}

ORVANE_PARTIAL_DEFINE(Component, ORVANE_VERSION_COLLECTION_PARTIAL_FIELDS)

}  // namespace orvane
