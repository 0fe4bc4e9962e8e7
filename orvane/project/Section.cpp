#include <orvane/project/Section.hpp>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Project.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Section, ORVANE_SECTION_FIELDS)

ORVANE_PARTIAL_DEFINE(Section, ORVANE_SECTION_PARTIAL_FIELDS)

}  // namespace orvane
