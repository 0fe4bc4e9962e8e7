#include <orvane/project/Dot.hpp>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Screen.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Dot, ORVANE_DOT_FIELDS, wireComments)

// Removed comments keep their back-reference to this dot.
void Dot::setComments(std::vector<Ref<Comment>> value) {
  comments_ = std::move(value);
  wireComments();
}

void Dot::wireComments() {
  auto self = shared_from_this();
  for (const auto& comment : comments_) {
    if (comment) comment->setDot(self);
  }
}

}  // namespace orvane
