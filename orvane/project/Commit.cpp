#include <orvane/project/Commit.hpp>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Version.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Commit, ORVANE_COMMIT_FIELDS)

}  // namespace orvane
