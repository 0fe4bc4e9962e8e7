// The record classes of the project structure, people and integrations, from their field statements.
#include "Bind.hpp"

namespace orvane::python {

namespace {
ORVANE_PY_RECORDS_PROJECT(ORVANE_PY_DEFINE_R, ORVANE_PY_DEFINE_S, ORVANE_PY_DEFINE_P)
ORVANE_PY_RECORDS_PEOPLE_AND_INTEGRATIONS(ORVANE_PY_DEFINE_R, ORVANE_PY_DEFINE_S, ORVANE_PY_DEFINE_P)
}  // namespace

void bindRecordsB(py::module_& m) {
  ORVANE_PY_RECORDS_PROJECT(ORVANE_PY_BIND_R, ORVANE_PY_BIND_S, ORVANE_PY_BIND_P)
  ORVANE_PY_RECORDS_PEOPLE_AND_INTEGRATIONS(ORVANE_PY_BIND_R, ORVANE_PY_BIND_S, ORVANE_PY_BIND_P)
}

}  // namespace orvane::python
