// A member of a project: a user with a role and tags.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/people/User+Partial.hpp>
#include <orvane/people/User.hpp>

namespace orvane {

class Project;

/// One member of a project. Holds its user strongly and its project weakly; the project sets
/// that back-reference when it takes the member into its `users`.
class ProjectUser {
 public:
  /// A flat set of roles: no case ranks above another.
  enum class Role { user, admin, owner, pawn, knight, rook, queen, king };

  struct CodingKeys {
    static constexpr std::string_view user = "user";
    static constexpr std::string_view role = "role";
    static constexpr std::string_view tags = "tags";
  };

  class Partial;

  ProjectUser(Passkey<ProjectUser>, Ref<User> user, std::optional<Role> role,
              std::optional<std::vector<std::string>> tags)
      : user_(std::move(user)), role_(role), tags_(std::move(tags)) {}

  /// `project` starts empty.
  static Ref<ProjectUser> make(Ref<User> user, std::optional<Role> role,
                               std::optional<std::vector<std::string>> tags);
  static Ref<ProjectUser> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const Ref<User>& user() const { return user_; }
  void setUser(Ref<User> value) { user_ = std::move(value); }
  std::optional<Role> role() const { return role_; }
  void setRole(std::optional<Role> value) { role_ = value; }
  const std::optional<std::vector<std::string>>& tags() const { return tags_; }
  void setTags(std::optional<std::vector<std::string>> value) { tags_ = std::move(value); }
  /// The project that holds this member; empty until a project takes it, or once it is gone.
  Ref<Project> project() const { return project_.lock(); }
  /// A null project means no value.
  void setProject(const Ref<Project>& value) { project_ = value; }

 private:
  Ref<User> user_;
  std::optional<Role> role_;
  std::optional<std::vector<std::string>> tags_;
  WeakRef<Project> project_;
};

/// The decode-only subset of a member that partial project documents carry.
class ProjectUser::Partial {
 public:
  static Partial decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const;

  const std::optional<User::Partial>& user() const { return user_; }
  const std::optional<Role>& role() const { return role_; }

 private:
  Partial() = default;

  std::optional<User::Partial> user_;
  std::optional<Role> role_;
};

template <>
struct EnumTraits<ProjectUser::Role> {
  static constexpr std::string_view typeName = "Role";
  static constexpr bool hasAllCases = true;
  static constexpr std::array<EnumCase<ProjectUser::Role>, 8> cases{{
      {ProjectUser::Role::user, "user", "user"},
      {ProjectUser::Role::admin, "admin", "admin"},
      {ProjectUser::Role::owner, "owner", "owner"},
      {ProjectUser::Role::pawn, "pawn", "pawn"},
      {ProjectUser::Role::knight, "knight", "knight"},
      {ProjectUser::Role::rook, "rook", "rook"},
      {ProjectUser::Role::queen, "queen", "queen"},
      {ProjectUser::Role::king, "king", "king"},
  }};
};

}  // namespace orvane
