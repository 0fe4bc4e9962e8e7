// The root of the object model: one design project for one platform.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/integrations/Extension.hpp>
#include <orvane/integrations/Integration.hpp>
#include <orvane/people/Organization.hpp>
#include <orvane/people/ProjectUser.hpp>
#include <orvane/project/ComponentSection.hpp>
#include <orvane/project/Screen.hpp>
#include <orvane/project/Section.hpp>
#include <orvane/styles/ProjectColor.hpp>
#include <orvane/styles/ProjectTextStyle.hpp>
#include <orvane/styles/TextStyle.hpp>
#include <orvane/values/Color.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/values/Density.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

/// A design project: its header (identity, status, name, icon, dates, platform, density) and,
/// below it, everything a client shows about the project. Children refer back to it weakly.
class Project : public std::enable_shared_from_this<Project> {
 public:
#define ORVANE_PROJECT_STATUS(C) C(active, "active") C(archived, "archived")
  /// Whether the project is in use or put away.
  ORVANE_ENUM(Status, ORVANE_PROJECT_STATUS)
#define ORVANE_PROJECT_KIND(C) C(android, "android") C(iOS, "ios") C(web, "web") C(macOS, "osx")
  /// The platform the project is designed for.
  ORVANE_ENUM(Kind, ORVANE_PROJECT_KIND)
#define ORVANE_PROJECT_ICON(C)                                                  \
  C(custom, "custom")                                                           \
  C(broccoli, "broccoli") C(car, "car") C(cook, "cook") C(elephant, "elephant") \
      C(mariachi, "mariachi") C(paw, "paw") C(pear, "pear") C(rocket, "rocket")
  /// The project's picture in listings: one of the service's own, or `custom`.
  ORVANE_ENUM(Icon, ORVANE_PROJECT_ICON)

  /// A text style the client proposes for the style guide; a value, never coded.
  struct CandidateTextStyle {
    /// Every member must be given.
    CandidateTextStyle(std::string name, std::optional<Identifier> sourceIdentifier,
                       Ref<TextStyle> textStyle)
        : name(std::move(name)),
          sourceIdentifier(std::move(sourceIdentifier)),
          textStyle(std::move(textStyle)) {}

    std::string name;                            ///< as the style guide would show it
    std::optional<Identifier> sourceIdentifier;  ///< the style in the source document, if known
    Ref<TextStyle> textStyle;                    ///< the proposed style

    /// Lists the three members.
    void visitFields(FieldVisitor& v) const;
  };
  class Partial;

  /// The screens filed by identifier; canonically equivalent identifiers are one key.
  using ScreensByIdentifier = std::unordered_map<Identifier, Ref<Screen>>;

  /// Reading "icon" needs an object even though the icon inside it is optional; a missing
  /// "updated" is the creation date. Screens are filed by identifier, later ones replacing
  /// earlier ones. Only name, icon, kind, density and thumbnail are written. Assigning one of
  /// the four wired collections (sections, screens, component sections, users), or changing it
  /// in place through its `edit...` member, points every element back at this project; elements
  /// taken out keep their back-reference. The fields from `extensions` on are filled by the
  /// client, never read from or written to a document.
#define ORVANE_PROJECT_FIELDS(F)                                                                  \
  F(identifier, Identifier, Identifier, "_id", required, never, localId, plain)                   \
  F(status, Status, std::optional<Status>, "status", tolerant, never, given, plain)               \
  F(name, Name, std::string, "name", required, always, given, plain)                              \
  F(description, Description, std::string, "description", orEmpty, never, empty, plain)           \
  F(icon, Icon, std::optional<Icon>, "icon", custom, custom, given, plain)                        \
  F(createDate, CreateDate, Date, "created", required, never, currentDate, plain)                 \
  F(updateDate, UpdateDate, Date, "updated", custom, never, given, plain)                         \
  F(kind, Kind, std::optional<Kind>, "type", tolerant, whenPresent, given, plain)                 \
  F(density, Density, std::optional<orvane::Density>, "density", tolerant, whenPresent, given,    \
    plain)                                                                                        \
  F(isPublic, IsPublic, std::optional<bool>, "public", optional, never, given, plain)             \
  F(sections, Sections, std::optional<std::vector<Ref<Section>>>, "sections", optional, never,    \
    given, observed)                                                                              \
  F(screensByIdentifier, ScreensByIdentifier, std::optional<ScreensByIdentifier>, "screens",      \
    custom, never, given, observed)                                                               \
  F(colors, Colors, std::optional<std::vector<Ref<ProjectColor>>>, "colors", optional, never,     \
    given, plain)                                                                                 \
  F(textStyles, TextStyles, std::optional<std::vector<Ref<ProjectTextStyle>>>, "textStyles",      \
    optional, never, given, plain)                                                                \
  F(componentSections, ComponentSections, std::optional<std::vector<Ref<ComponentSection>>>,      \
    "componentSections", optional, never, given, observed)                                        \
  F(users, Users, std::vector<Ref<ProjectUser>>, "users", required, never, given, observed)       \
  F(thumbnailURL, ThumbnailURL, std::optional<Url>, "thumbnail", optional, whenPresent, given,    \
    plain)                                                                                        \
  F(integration, Integration, Ref<orvane::Integration>, "integration", optional, never, given,    \
    plain)                                                                                        \
  F(extensions, Extensions, std::optional<std::vector<Ref<Extension>>>, none, none, never, none,  \
    plain)                                                                                        \
  F(candidateTextStyles, CandidateTextStyles, std::optional<std::vector<CandidateTextStyle>>,     \
    none, none, never, none, plain)                                                               \
  F(candidateColors, CandidateColors, std::optional<std::vector<Ref<Color>>>, none, none, never,  \
    none, plain)                                                                                  \
  F(organization, Organization, Ref<orvane::Organization>, none, none, never, none, plain)        \
  F(emojis, Emojis, std::optional<std::vector<Ref<Integration::Emoji>>>, none, none, never, none, \
    plain)                                                                                        \
  F(localExtensions, LocalExtensions, std::optional<std::vector<Ref<Extension>>>, none, none,     \
    never, none, plain)
  ORVANE_FIELDS(Project, ORVANE_PROJECT_FIELDS)

 public:
  /// Wires sections, screens, component sections and members, in that order.
  static Ref<Project> make(Fields fields);
  /// Reads the header and the contents, files the screens by identifier, then wires once.
  static Ref<Project> decode(const Decoder& decoder);
  /// Writes the header members only; the result is not a document `decode` accepts.
  void encode(Encoder& encoder) const;

  ///@{

  /// Changes that collection in place through `fn`, then points every element back at this
  /// project as assigning it would; elements taken out keep their back-reference.
  template <class Fn>
  void editSections(Fn&& fn) {
    std::forward<Fn>(fn)(sections_);
    wireSections();
  }
  template <class Fn>
  void editScreensByIdentifier(Fn&& fn) {
    std::forward<Fn>(fn)(screensByIdentifier_);
    wireScreens();
  }
  template <class Fn>
  void editComponentSections(Fn&& fn) {
    std::forward<Fn>(fn)(componentSections_);
    wireComponentSections();
  }
  template <class Fn>
  void editUsers(Fn&& fn) {
    std::forward<Fn>(fn)(users_);
    wireUsers();
  }
  ///@}

 private:
  /// The keys of the object under "icon".
  struct IconCodingKeys {
    static constexpr std::string_view kind = "type";
  };

  void wire();
  void wireSections();
  void wireScreens();
  void wireComponentSections();
  void wireUsers();
};

/// Lists the screens sorted by identifier: the dictionary keeps no order, the listing must.
void describe(FieldVisitor& v, const Project::ScreensByIdentifier& screens);

/// What a partial project document carries: header fields and members' partials, no contents.
class Project::Partial {
#define ORVANE_PROJECT_PARTIAL_FIELDS(P)                                                \
  P(identifier, Identifier, std::optional<Identifier>, optional, readOnly)              \
  P(status, Status, std::optional<Status>, tolerant, readOnly)                          \
  P(name, Name, std::optional<std::string>, optional, readOnly)                         \
  P(description, Description, std::optional<std::string>, optional, readOnly)           \
  P(createDate, CreateDate, std::optional<Date>, optional, readOnly)                    \
  P(updateDate, UpdateDate, std::optional<Date>, optional, readOnly)                    \
  P(density, Density, std::optional<orvane::Density>, tolerant, readOnly)               \
  P(isPublic, IsPublic, std::optional<bool>, optional, readOnly)                        \
  P(users, Users, std::optional<std::vector<ProjectUser::Partial>>, optional, readOnly) \
  P(thumbnailURL, ThumbnailURL, std::optional<Url>, optional, readOnly)
  ORVANE_PARTIAL_FIELDS(ORVANE_PROJECT_PARTIAL_FIELDS)
};

ORVANE_ENUM_TRAITS(Project::Status, "Status", ORVANE_PROJECT_STATUS, false)
ORVANE_ENUM_TRAITS(Project::Kind, "Kind", ORVANE_PROJECT_KIND, false)
ORVANE_ENUM_TRAITS(Project::Icon, "Icon", ORVANE_PROJECT_ICON, false)

}  // namespace orvane
