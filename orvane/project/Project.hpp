// The root of the object model: one design project for one platform.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <orvane/values/Color.hpp>
#include <orvane/coding/Decoder.hpp>
#include <orvane/values/Density.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/styles/ProjectColor.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/values/Url.hpp>
#include <orvane/integrations/Extension.hpp>
#include <orvane/integrations/Integration.hpp>
#include <orvane/people/Organization.hpp>
#include <orvane/people/ProjectUser.hpp>
#include <orvane/project/ComponentSection.hpp>
#include <orvane/project/Screen.hpp>
#include <orvane/project/Section.hpp>
#include <orvane/styles/ProjectTextStyle.hpp>
#include <orvane/styles/TextStyle.hpp>

namespace orvane {

/// A design project: its header (identity, status, name, icon, dates, platform, density) and,
/// below it, everything a client shows about the project. Children refer back to it weakly.
class Project : public std::enable_shared_from_this<Project> {
 public:
  enum class Status { active, archived };
  enum class Kind { android, iOS, web, macOS };
  enum class Icon { custom, broccoli, car, cook, elephant, mariachi, paw, pear, rocket };

  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view status = "status";
    static constexpr std::string_view name = "name";
    static constexpr std::string_view description = "description";
    static constexpr std::string_view icon = "icon";
    static constexpr std::string_view createDate = "created";
    static constexpr std::string_view updateDate = "updated";
    static constexpr std::string_view kind = "type";
    static constexpr std::string_view density = "density";
    static constexpr std::string_view isPublic = "public";
    static constexpr std::string_view sections = "sections";
    static constexpr std::string_view screens = "screens";
    static constexpr std::string_view colors = "colors";
    static constexpr std::string_view textStyles = "textStyles";
    static constexpr std::string_view componentSections = "componentSections";
    static constexpr std::string_view users = "users";
    static constexpr std::string_view thumbnailURL = "thumbnail";
    static constexpr std::string_view integration = "integration";
  };

  struct CandidateTextStyle;
  class Partial;

  using ScreensByIdentifier = std::unordered_map<Identifier, Ref<Screen>>;

  /// The header fields, as the constructor takes them.
  struct Header {
    Identifier identifier;
    std::optional<Status> status;
    std::string name;
    std::string description;
    std::optional<Icon> icon;
    Date createDate;
    Date updateDate;
    std::optional<Kind> kind;
    std::optional<Density> density;
    std::optional<bool> isPublic;
    std::optional<Url> thumbnailURL;
  };

  Project(Passkey<Project>, Header header);

  /// The memberwise initializer. The model's three defaulted parameters (identifier,
  /// description, creation date) come last, in their order; every other one must be passed.
  /// Wires sections, screens, component sections and members, in that order.
  static Ref<Project> make(std::optional<Status> status, std::string name, std::optional<Icon> icon,
                           Date updateDate, std::optional<Kind> kind,
                           std::optional<Density> density, std::optional<bool> isPublic,
                           std::optional<std::vector<Ref<Section>>> sections,
                           std::optional<ScreensByIdentifier> screensByIdentifier,
                           std::optional<std::vector<Ref<ProjectColor>>> colors,
                           std::optional<std::vector<Ref<ProjectTextStyle>>> textStyles,
                           std::optional<std::vector<Ref<ComponentSection>>> componentSections,
                           std::vector<Ref<ProjectUser>> users, std::optional<Url> thumbnailURL,
                           Ref<Integration> integration,
                           Identifier identifier = Identifier::local(),
                           std::string description = {}, Date createDate = now());
  /// Reads the header and the contents, files the screens by identifier, then wires once.
  static Ref<Project> decode(const Decoder& decoder);
  /// Writes the header members only; the result is not a document `decode` accepts.
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  std::optional<Status> status() const { return status_; }
  void setStatus(std::optional<Status> value) { status_ = value; }
  const std::string& name() const { return name_; }
  void setName(std::string value) { name_ = std::move(value); }
  const std::string& description() const { return description_; }
  void setDescription(std::string value) { description_ = std::move(value); }
  std::optional<Icon> icon() const { return icon_; }
  void setIcon(std::optional<Icon> value) { icon_ = value; }
  Date createDate() const { return createDate_; }
  void setCreateDate(Date value) { createDate_ = value; }
  Date updateDate() const { return updateDate_; }
  void setUpdateDate(Date value) { updateDate_ = value; }
  std::optional<Kind> kind() const { return kind_; }
  void setKind(std::optional<Kind> value) { kind_ = value; }
  std::optional<Density> density() const { return density_; }
  void setDensity(std::optional<Density> value) { density_ = value; }
  std::optional<bool> isPublic() const { return isPublic_; }
  void setIsPublic(std::optional<bool> value) { isPublic_ = value; }
  const std::optional<Url>& thumbnailURL() const { return thumbnailURL_; }
  void setThumbnailURL(std::optional<Url> value) { thumbnailURL_ = std::move(value); }

  // Contents. Assigning one of the four wired collections, or changing it in place through its
  // `edit...` member, points every element back at this project. Elements taken out keep their
  // back-reference.
  const std::optional<std::vector<Ref<Section>>>& sections() const { return sections_; }
  void setSections(std::optional<std::vector<Ref<Section>>> value);
  template <class Fn>
  void editSections(Fn&& fn) {
    std::forward<Fn>(fn)(sections_);
    wireSections();
  }
  const std::optional<ScreensByIdentifier>& screensByIdentifier() const {
    return screensByIdentifier_;
  }
  void setScreensByIdentifier(std::optional<ScreensByIdentifier> value);
  template <class Fn>
  void editScreensByIdentifier(Fn&& fn) {
    std::forward<Fn>(fn)(screensByIdentifier_);
    wireScreens();
  }
  const std::optional<std::vector<Ref<ComponentSection>>>& componentSections() const {
    return componentSections_;
  }
  void setComponentSections(std::optional<std::vector<Ref<ComponentSection>>> value);
  template <class Fn>
  void editComponentSections(Fn&& fn) {
    std::forward<Fn>(fn)(componentSections_);
    wireComponentSections();
  }
  const std::vector<Ref<ProjectUser>>& users() const { return users_; }
  void setUsers(std::vector<Ref<ProjectUser>> value);
  template <class Fn>
  void editUsers(Fn&& fn) {
    std::forward<Fn>(fn)(users_);
    wireUsers();
  }

  const std::optional<std::vector<Ref<ProjectColor>>>& colors() const { return colors_; }
  void setColors(std::optional<std::vector<Ref<ProjectColor>>> value) {
    colors_ = std::move(value);
  }
  const std::optional<std::vector<Ref<ProjectTextStyle>>>& textStyles() const {
    return textStyles_;
  }
  void setTextStyles(std::optional<std::vector<Ref<ProjectTextStyle>>> value) {
    textStyles_ = std::move(value);
  }
  const Ref<Integration>& integration() const { return integration_; }
  void setIntegration(Ref<Integration> value) { integration_ = std::move(value); }

  // Filled by the client, never read from or written to a document.
  const std::optional<std::vector<Ref<Extension>>>& extensions() const { return extensions_; }
  void setExtensions(std::optional<std::vector<Ref<Extension>>> value) {
    extensions_ = std::move(value);
  }
  const std::optional<std::vector<CandidateTextStyle>>& candidateTextStyles() const {
    return candidateTextStyles_;
  }
  void setCandidateTextStyles(std::optional<std::vector<CandidateTextStyle>> value);
  const std::optional<std::vector<Ref<Color>>>& candidateColors() const { return candidateColors_; }
  void setCandidateColors(std::optional<std::vector<Ref<Color>>> value) {
    candidateColors_ = std::move(value);
  }
  const Ref<Organization>& organization() const { return organization_; }
  void setOrganization(Ref<Organization> value) { organization_ = std::move(value); }
  const std::optional<std::vector<Ref<Integration::Emoji>>>& emojis() const { return emojis_; }
  void setEmojis(std::optional<std::vector<Ref<Integration::Emoji>>> value) {
    emojis_ = std::move(value);
  }
  const std::optional<std::vector<Ref<Extension>>>& localExtensions() const {
    return localExtensions_;
  }
  void setLocalExtensions(std::optional<std::vector<Ref<Extension>>> value) {
    localExtensions_ = std::move(value);
  }

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

  Identifier identifier_;
  std::optional<Status> status_;
  std::string name_;
  std::string description_;
  std::optional<Icon> icon_;
  Date createDate_;
  Date updateDate_;
  std::optional<Kind> kind_;
  std::optional<Density> density_;
  std::optional<bool> isPublic_;
  std::optional<std::vector<Ref<Section>>> sections_;
  std::optional<ScreensByIdentifier> screensByIdentifier_;
  std::optional<std::vector<Ref<ProjectColor>>> colors_;
  std::optional<std::vector<Ref<ProjectTextStyle>>> textStyles_;
  std::optional<std::vector<Ref<ComponentSection>>> componentSections_;
  std::vector<Ref<ProjectUser>> users_;
  std::optional<Url> thumbnailURL_;
  Ref<Integration> integration_;
  std::optional<std::vector<Ref<Extension>>> extensions_;
  std::optional<std::vector<CandidateTextStyle>> candidateTextStyles_;
  std::optional<std::vector<Ref<Color>>> candidateColors_;
  Ref<Organization> organization_;
  std::optional<std::vector<Ref<Integration::Emoji>>> emojis_;
  std::optional<std::vector<Ref<Extension>>> localExtensions_;
};

/// A text style the client proposes for the style guide; a value, never coded.
struct Project::CandidateTextStyle {
  CandidateTextStyle(std::string name, std::optional<Identifier> sourceIdentifier,
                     Ref<TextStyle> textStyle)
      : name(std::move(name)),
        sourceIdentifier(std::move(sourceIdentifier)),
        textStyle(std::move(textStyle)) {}

  std::string name;
  std::optional<Identifier> sourceIdentifier;
  Ref<TextStyle> textStyle;

  void visitFields(FieldVisitor& v) const;
};

/// What a partial project document carries: header fields and members' partials, no contents.
class Project::Partial {
 public:
  static Partial decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const;

  const std::optional<Identifier>& identifier() const { return identifier_; }
  const std::optional<Status>& status() const { return status_; }
  const std::optional<std::string>& name() const { return name_; }
  const std::optional<std::string>& description() const { return description_; }
  const std::optional<Date>& createDate() const { return createDate_; }
  const std::optional<Date>& updateDate() const { return updateDate_; }
  const std::optional<Density>& density() const { return density_; }
  const std::optional<bool>& isPublic() const { return isPublic_; }
  const std::optional<std::vector<ProjectUser::Partial>>& users() const { return users_; }
  const std::optional<Url>& thumbnailURL() const { return thumbnailURL_; }

 private:
  Partial() = default;

  std::optional<Identifier> identifier_;
  std::optional<Status> status_;
  std::optional<std::string> name_;
  std::optional<std::string> description_;
  std::optional<Date> createDate_;
  std::optional<Date> updateDate_;
  std::optional<Density> density_;
  std::optional<bool> isPublic_;
  std::optional<std::vector<ProjectUser::Partial>> users_;
  std::optional<Url> thumbnailURL_;
};

template <>
struct EnumTraits<Project::Status> {
  static constexpr std::string_view typeName = "Status";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Project::Status>, 2> cases{{
      {Project::Status::active, "active", "active"},
      {Project::Status::archived, "archived", "archived"},
  }};
};

template <>
struct EnumTraits<Project::Kind> {
  static constexpr std::string_view typeName = "Kind";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Project::Kind>, 4> cases{{
      {Project::Kind::android, "android", "android"},
      {Project::Kind::iOS, "ios", "iOS"},
      {Project::Kind::web, "web", "web"},
      {Project::Kind::macOS, "osx", "macOS"},
  }};
};

template <>
struct EnumTraits<Project::Icon> {
  static constexpr std::string_view typeName = "Icon";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Project::Icon>, 9> cases{{
      {Project::Icon::custom, "custom", "custom"},
      {Project::Icon::broccoli, "broccoli", "broccoli"},
      {Project::Icon::car, "car", "car"},
      {Project::Icon::cook, "cook", "cook"},
      {Project::Icon::elephant, "elephant", "elephant"},
      {Project::Icon::mariachi, "mariachi", "mariachi"},
      {Project::Icon::paw, "paw", "paw"},
      {Project::Icon::pear, "pear", "pear"},
      {Project::Icon::rocket, "rocket", "rocket"},
  }};
};

}  // namespace orvane
