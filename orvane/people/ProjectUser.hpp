// A member of a project: a user with a role and tags.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/coding/Fields.hpp>
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
#define ORVANE_PROJECT_USER_ROLE(C)                                                       \
  C(user, "user")                                                                         \
  C(admin, "admin") C(owner, "owner") C(pawn, "pawn") C(knight, "knight") C(rook, "rook") \
      C(queen, "queen") C(king, "king")
  /// A flat set of roles: no case ranks above another.
  ORVANE_ENUM(Role, ORVANE_PROJECT_USER_ROLE)

  /// `project` is empty until a project takes this member, or once it is gone.
#define ORVANE_PROJECT_USER_FIELDS(F)                                                          \
  F(user, User, Ref<orvane::User>, "user", required, always, given, plain)                     \
  F(role, Role, std::optional<Role>, "role", tolerant, whenPresent, given, plain)              \
  F(tags, Tags, std::optional<std::vector<std::string>>, "tags", optional, whenPresent, given, \
    plain)                                                                                     \
  F(project, Project, WeakRef<orvane::Project>, none, none, never, none, backRef)
  ORVANE_FIELDS(ProjectUser, ORVANE_PROJECT_USER_FIELDS)

 public:
  class Partial;

  /// `project` starts empty.
  static Ref<ProjectUser> make(Fields fields);
  /// Fails without a valid "user"; an unknown "role" gives none. `project` stays empty until
  /// a project adopts the member.
  static Ref<ProjectUser> decode(const Decoder& decoder);
  /// Writes "user", and "role" and "tags" when present.
  void encode(Encoder& encoder) const;
};

/// The decode-only subset of a member that partial project documents carry.
class ProjectUser::Partial {
#define ORVANE_PROJECT_USER_PARTIAL_FIELDS(P)                     \
  P(user, User, std::optional<User::Partial>, optional, readOnly) \
  P(role, Role, std::optional<Role>, tolerant, readOnly)
  ORVANE_PARTIAL_FIELDS(ORVANE_PROJECT_USER_PARTIAL_FIELDS)
};

ORVANE_ENUM_TRAITS(ProjectUser::Role, "Role", ORVANE_PROJECT_USER_ROLE, true)

}  // namespace orvane
