// The root of the object model: one design project for one platform.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Density.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/Identifier.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/coding/Values.hpp>

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
  /// The keys of the object under "icon".
  struct IconCodingKeys {
    static constexpr std::string_view kind = "type";
  };

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

 private:
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
