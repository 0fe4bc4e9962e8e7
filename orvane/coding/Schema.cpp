#include <orvane/coding/Schema.hpp>

namespace orvane {

SchemaVisitor::~SchemaVisitor() = default;

}  // namespace orvane
