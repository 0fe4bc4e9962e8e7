// The record classes of the values, styles and snapshot content, from their field statements.
#include "Bind.hpp"

namespace orvane::python {

namespace {
ORVANE_PY_RECORDS_VALUES_AND_STYLES(ORVANE_PY_DEFINE_R, ORVANE_PY_DEFINE_S, ORVANE_PY_DEFINE_P)
ORVANE_PY_RECORDS_SNAPSHOT(ORVANE_PY_DEFINE_R, ORVANE_PY_DEFINE_S, ORVANE_PY_DEFINE_P)
}  // namespace

void bindRecordsA(py::module_& m) {
  ORVANE_PY_RECORDS_VALUES_AND_STYLES(ORVANE_PY_BIND_R, ORVANE_PY_BIND_S, ORVANE_PY_BIND_P)
  ORVANE_PY_RECORDS_SNAPSHOT(ORVANE_PY_BIND_R, ORVANE_PY_BIND_S, ORVANE_PY_BIND_P)
}

}  // namespace orvane::python
