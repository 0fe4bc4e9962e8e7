#include <orvane/people/ProjectUser.hpp>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Project.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(ProjectUser, ORVANE_PROJECT_USER_FIELDS)

ORVANE_PARTIAL_DEFINE(ProjectUser, ORVANE_PROJECT_USER_PARTIAL_FIELDS)

}  // namespace orvane
