#include <orvane/people/ProjectUser.hpp>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Project.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(ProjectUser, ORVANE_PROJECT_USER_FIELDS)

ProjectUser::Partial ProjectUser::Partial::decode(const Decoder& decoder) {
  using K = ProjectUser::CodingKeys;
  auto c = decoder.container();
  Partial p;
  p.user_ = c.decodeIfPresent<User::Partial>(K::user);
  p.role_ = c.decodeTolerant<Role>(K::role);
  return p;
}

void ProjectUser::Partial::visitFields(FieldVisitor& v) const {
  v.field("user", user_);
  v.field("role", role_);
}

}  // namespace orvane
