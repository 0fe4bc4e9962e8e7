#include "Types.hpp"

#include <orvane/orvane.hpp>

namespace orvane::tool {

namespace {

// Every TYPE the tool decodes, in the order `orvane types` lists them.
constexpr TypeEntry kTypes[] = {
    entry<Identifier>("Identifier"),
    entry<Density>("Density"),
    entry<BlendMode>("BlendMode"),
    entry<Color>("Color"),
    entry<ProjectColor>("ProjectColor"),
    entry<ProjectColor::Partial>("ProjectColor.Partial"),
    // Styles.
    entry<TextStyle>("TextStyle"),
    entry<TextStyle::Alignment>("TextStyle.Alignment"),
    entry<ProjectTextStyle>("ProjectTextStyle"),
    entry<ProjectTextStyle::Partial>("ProjectTextStyle.Partial"),
    entry<RangedTextStyle>("RangedTextStyle"),
    entry<Fill>("Fill"),
    entry<Fill::Kind::Key>("Fill.Kind.Key"),
    entry<Gradient>("Gradient"),
    entry<Gradient::Kind>("Gradient.Kind"),
    entry<Gradient::Stop>("Gradient.Stop"),
    entry<Border>("Border"),
    entry<Border::Position>("Border.Position"),
    entry<Shadow>("Shadow"),
    entry<Shadow::Kind>("Shadow.Kind"),
    entry<Blur>("Blur"),
    entry<Blur::Kind>("Blur.Kind"),
    // People and accounts.
    entry<User>("User"),
    entry<User::Partial>("User.Partial"),
    entry<User::Status>("User.Status"),
    entry<User::SubscriptionStatus>("User.SubscriptionStatus"),
    entry<User::Emotar>("User.Emotar"),
    entry<ProjectUser>("ProjectUser"),
    entry<ProjectUser::Partial>("ProjectUser.Partial"),
    entry<ProjectUser::Role>("ProjectUser.Role"),
    entry<Organization>("Organization"),
    entry<Organization::Partial>("Organization.Partial"),
    entry<Organization::Status>("Organization.Status"),
    entry<Organization::SubscriptionStatus>("Organization.SubscriptionStatus"),
    entry<Plan>("Plan"),
    entry<Plan::Status>("Plan.Status"),
    entry<Plan::Period>("Plan.Period"),
    // Snapshot content.
    entry<Snapshot>("Snapshot"),
    entry<Snapshot::Source>("Snapshot.Source"),
    entry<Grid>("Grid"),
    entry<Grid::Vertical>("Grid.Vertical"),
    entry<Grid::Horizontal>("Grid.Horizontal"),
    entry<Layer>("Layer"),
    entry<Layer::Kind::Key>("Layer.Kind.Key"),
    entry<Layer::InteractionLevel>("Layer.InteractionLevel"),
    entry<Asset>("Asset"),
    entry<Asset::Content>("Asset.Content"),
    entry<Asset::Content::Format>("Asset.Content.Format"),
    entry<Link>("Link"),
    entry<Destination>("Destination"),
    entry<Destination::Kind::Key>("Destination.Kind.Key"),
    // Project structure.
    entry<Project>("Project"),
    entry<Project::Partial>("Project.Partial"),
    entry<Project::Status>("Project.Status"),
    entry<Project::Kind>("Project.Kind"),
    entry<Project::Icon>("Project.Icon"),
    entry<Section>("Section"),
    entry<Section::Partial>("Section.Partial"),
    entry<ComponentSection>("ComponentSection"),
    entry<ComponentSection::Partial>("ComponentSection.Partial"),
    entry<VersionCollection>("VersionCollection"),
    entry<Screen>("Screen"),
    entry<Screen::Partial>("Screen.Partial"),
    entry<Component>("Component"),
    entry<Component::Partial>("Component.Partial"),
    entry<Version>("Version"),
    entry<Commit>("Commit"),
    entry<Dot>("Dot"),
    entry<Dot::Partial>("Dot.Partial"),
    entry<Dot::Status>("Dot.Status"),
    entry<Comment>("Comment"),
    entry<Comment::Partial>("Comment.Partial"),
    // Integrations and extensions.
    entry<Integration>("Integration"),
    entry<Integration::Slack>("Integration.Slack"),
    entry<Extension>("Extension"),
    entry<Extension::Manifest>("Extension.Manifest"),
    entry<Extension::Author>("Extension.Author"),
    entry<Extension::Option>("Extension.Option"),
    entry<Extension::Option::Kind::Key>("Extension.Option.Kind.Key"),
    entry<Extension::Option::PickerOption>("Extension.Option.PickerOption"),
};

}  // namespace

std::span<const TypeEntry> registeredTypes() {
  return kTypes;
}

const TypeEntry* findType(std::string_view name) {
  for (const auto& type : kTypes) {
    if (type.name == name) return &type;
  }
  return nullptr;
}

const TypeEntry* findType(const std::type_info& type) {
  for (const auto& entry : kTypes) {
    if (*entry.type == type) return &entry;
  }
  return nullptr;
}

namespace detail {

void dumpTo(JsonSink& out, bool pretty, const std::function<void(FieldVisitor&)>& show) {
  std::string buffer;
  {
    JsonWriter writer(buffer, pretty);
    writer.streamTo([](void* sink, std::string_view text) { static_cast<JsonSink*>(sink)->write(text); },
                    &out);
    JsonFieldWriter fields(writer);
    show(fields);
  }
  out.write(buffer);
}

}  // namespace detail

JsonSchemaOptions schemaOptions() {
  JsonSchemaOptions options;
  options.nameOf = [](const std::type_info& type) {
    const TypeEntry* entry = findType(type);
    return entry ? std::string(entry->name) : schemaTypeName(type);
  };
  return options;
}

}  // namespace orvane::tool
