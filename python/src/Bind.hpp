// Expanders of RecordTable.hpp for the bindings: DEFINE makes each record's attribute and
// constructor functions, BIND makes its class in the module.
#pragma once

#include <string>

#include "RecordTable.hpp"
#include "Records.hpp"

namespace orvane::python {

/// The class that `owner` names in `m` (`m` itself for ""), which must exist already.
inline py::object ownerScope(py::module_& m, const char* owner) {
  if (owner[0] == '\0') return m;
  return m.attr(owner);
}

inline std::string qualified(const char* owner, const char* name) {
  return owner[0] == '\0' ? std::string(name) : std::string(owner) + "." + name;
}

}  // namespace orvane::python

#define ORVANE_PY_DEFINE_R(id, Type, Owner, Name, LIST) \
  ORVANE_PY_ATTRIBUTES(attributes_##id, LIST)           \
  ORVANE_PY_CONSTRUCTOR(make_##id, LIST)
#define ORVANE_PY_DEFINE_S(id, Type, Base, Owner, Name, LIST, MAKE) \
  ORVANE_PY_ATTRIBUTES(attributes_##id, LIST)                       \
  ORVANE_PY_CONSTRUCTOR(make_##id, MAKE)
#define ORVANE_PY_DEFINE_P(id, Type, Owner, Name, LIST) \
  ORVANE_PY_PARTIAL_ATTRIBUTES(attributes_##id, LIST)

#define ORVANE_PY_BIND_R(id, Type, Owner, Name, LIST)                                        \
  {                                                                                          \
    auto cls = ::orvane::python::recordClass<Type>(::orvane::python::ownerScope(m, Owner),   \
                                                   Name, ::orvane::python::qualified(Owner, Name)); \
    attributes_##id<Type>(cls);                                                              \
    cls.def(py::init([](const py::kwargs& kw) { return make_##id<Type>(Name, kw); }));       \
  }
#define ORVANE_PY_BIND_S(id, Type, Base, Owner, Name, LIST, MAKE)                             \
  {                                                                                          \
    auto cls = ::orvane::python::recordClass<Type, Base>(                                    \
        ::orvane::python::ownerScope(m, Owner), Name, ::orvane::python::qualified(Owner, Name)); \
    attributes_##id<Type>(cls);                                                              \
    cls.def(py::init([](const py::kwargs& kw) { return make_##id<Type>(Name, kw); }));       \
  }
#define ORVANE_PY_BIND_P(id, Type, Owner, Name, LIST)                                        \
  {                                                                                          \
    auto cls = ::orvane::python::partialClass<Type>(::orvane::python::ownerScope(m, Owner),  \
                                                    Name, ::orvane::python::qualified(Owner, Name)); \
    attributes_##id<Type>(cls);                                                              \
  }
