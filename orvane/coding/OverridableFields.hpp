// A base for records that have subclasses: the generated `visitFields` overrides the one
// declared here, so a listing through the base shows the subclass's fields too.
#pragma once

#include <orvane/coding/FieldVisitor.hpp>

namespace orvane::detail {

class OverridableFields {
 public:
  virtual ~OverridableFields() = default;
  virtual void visitFields(FieldVisitor& visitor) const = 0;

 protected:
  OverridableFields() = default;
  OverridableFields(const OverridableFields&) = default;
  OverridableFields& operator=(const OverridableFields&) = default;
};

}  // namespace orvane::detail
