#include <orvane/people/ProjectUser.hpp>

#include <orvane/project/Project.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<ProjectUser> ProjectUser::make(Ref<User> user, std::optional<Role> role,
                                   std::optional<std::vector<std::string>> tags) {
  return makeRef<ProjectUser>(Passkey<ProjectUser>{}, std::move(user), role, std::move(tags));
}

Ref<ProjectUser> ProjectUser::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto user = c.decode<Ref<User>>(K::user);
  auto role = c.decodeTolerant<Role>(K::role);
  auto tags = c.decodeIfPresent<std::vector<std::string>>(K::tags);
  return make(std::move(user), role, std::move(tags));
}

void ProjectUser::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::user, user_);
  c.encodeIfPresent(K::role, role_);
  c.encodeIfPresent(K::tags, tags_);
}

void ProjectUser::visitFields(FieldVisitor& v) const {
  v.field("user", user_);
  v.field("role", role_);
  v.field("tags", tags_);
  v.field("project", project_);
}

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
