#include <orvane/project/Comment.hpp>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Dot.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Comment, ORVANE_COMMENT_FIELDS)

ORVANE_PARTIAL_DEFINE(Comment, ORVANE_COMMENT_PARTIAL_FIELDS)

}  // namespace orvane
