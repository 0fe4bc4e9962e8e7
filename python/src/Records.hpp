// Python classes generated from the field statements: each record's list macro expands into
// its attributes (getter and setter, read-only for back-references), its keyword constructor
// (the model's order and defaults) and what `dump` and `encode` need. Nothing here names a
// record: RecordsA.cpp and RecordsB.cpp list them.
#pragma once

#include <memory>
#include <optional>
#include <vector>
#include <string>
#include <type_traits>
#include <utility>

#include <orvane/coding/Fields.hpp>
#include <orvane/json/JsonEncoder.hpp>

#include "Convert.hpp"

namespace orvane::python {

/// Builds Python objects from what a FieldVisitor is shown: the tool's dump, as values.
class PythonFields final : public FieldVisitor {
 public:
  void null() override { put(py::none()); }
  void boolean(bool value) override { put(py::bool_(value)); }
  void integer(std::int64_t value) override { put(py::int_(value)); }
  void number(double value) override { put(py::float_(value)); }
  void string(std::string_view value) override { put(py::str(value.data(), value.size())); }
  void beginObject() override { open(py::dict()); }
  void key(std::string_view name) override { key_ = std::string(name); }
  void endObject() override { close(); }
  void beginArray() override { open(py::list()); }
  void endArray() override { close(); }
  py::object result() { return std::move(result_); }

 private:
  struct Open {
    py::object container;
    std::string key;  // where it goes in the object that holds it
  };
  void open(py::object container) {
    stack_.push_back({std::move(container), std::move(key_)});
    key_.clear();
  }
  void close() {
    Open done = std::move(stack_.back());
    stack_.pop_back();
    key_ = std::move(done.key);
    put(std::move(done.container));
  }
  void put(py::object value) {
    if (stack_.empty()) {
      result_ = std::move(value);
    } else if (py::isinstance<py::dict>(stack_.back().container)) {
      stack_.back().container[py::str(key_)] = std::move(value);
    } else {
      stack_.back().container.cast<py::list>().append(std::move(value));
    }
  }
  std::vector<Open> stack_;
  std::string key_;
  py::object result_;
};

/// The keyword arguments of a constructor, taken one by one in the model's order; whatever is
/// left over was no field.
class Keywords {
 public:
  Keywords(const char* typeName, const py::kwargs& given) : typeName_(typeName), given_(given) {}

  template <class M>
  M required(std::string_view name) {
    std::string key = pyName(name);
    if (!given_.contains(key.c_str())) {
      throw py::type_error(std::string(typeName_) + "() missing keyword argument '" + key + "'");
    }
    return take<M>(key);
  }
  /// A defaulted argument; `Member` is the `Fields` member's type, and a `Required` one (a
  /// `make` that takes no defaults, as a component's) must be given after all.
  template <class Member, class M, class Default>
  M optional(std::string_view name, Default&& fallback) {
    if constexpr (!std::is_same_v<Member, M>) return required<M>(name);
    std::string key = pyName(name);
    if (!given_.contains(key.c_str())) return std::forward<Default>(fallback)();
    return take<M>(key);
  }
  /// Refuses keywords that name no field.
  void done() const {
    if (static_cast<std::size_t>(py::len(given_)) == used_) return;
    for (auto item : given_) {
      std::string key = py::str(item.first);
      bool known = false;
      for (const auto& u : names_) known = known || u == key;
      if (!known) {
        throw py::type_error(std::string(typeName_) + "() got an unexpected keyword argument '" +
                             key + "'");
      }
    }
  }

 private:
  template <class M>
  M take(const std::string& key) {
    ++used_;
    names_.push_back(key);
    py::handle value = given_[key.c_str()];
    try {
      return value.cast<M>();
    } catch (const py::cast_error&) {
      throw py::type_error(std::string(typeName_) + "(): " + key + " cannot be " +
                           std::string(py::str(py::type::of(value).attr("__name__"))));
    }
  }
  const char* typeName_;
  const py::kwargs& given_;
  std::size_t used_ = 0;
  std::vector<std::string> names_;
};

namespace detail {
template <class M>
struct Member {
  using type = M;
};
template <class M>
struct Member<Required<M>> {
  using type = M;
};
}  // namespace detail

/// The type a `Fields` member holds, without its `Required`.
template <class M>
using MemberType = typename detail::Member<M>::type;

namespace detail {
template <class V>
constexpr bool kReadInPlace = std::is_same_v<V, std::string>;
template <class V>
constexpr bool kReadInPlace<std::shared_ptr<V>> = true;
template <class V>
constexpr bool kReadInPlace<std::vector<std::shared_ptr<V>>> = true;
template <class V>
constexpr bool kReadInPlace<std::optional<std::vector<std::shared_ptr<V>>>> = true;
}  // namespace detail

/// What an attribute's getter returns: a reference to the record's own string or records
/// where the getter gives one (converting copies them into Python anyway, so the copy in
/// between is saved), a copy otherwise: a value of a bound class must never be handed out
/// by reference, or assigning the field would leave Python holding a destroyed value.
template <class Got, class V = std::decay_t<Got>>
using Getter = std::conditional_t<std::is_reference_v<Got> && detail::kReadInPlace<V>, const V&, V>;

/// The type a record's getter gives, as Python receives it.
#define ORVANE_PY_VALUE(name) std::decay_t<decltype(std::declval<const T&>().name())>
#define ORVANE_PY_GETTER(name) \
  [](const T& r) -> ::orvane::python::Getter<decltype(r.name())> { return r.name(); }

/// A field's attribute, by its access column.
#define ORVANE_PY_ACCESS_plain(name, Name)                                              \
  cls.def_property(                                                                    \
      ::orvane::python::pyName(#name).c_str(), ORVANE_PY_GETTER(name),                  \
      [](T& r, ORVANE_PY_VALUE(name) v) { r.set##Name(std::move(v)); });
#define ORVANE_PY_ACCESS_observed(name, Name) ORVANE_PY_ACCESS_plain(name, Name)
#define ORVANE_PY_ACCESS_own(name, Name)                                                \
  if constexpr (requires(T & r, ORVANE_PY_VALUE(name) v) { r.set##Name(std::move(v)); }) { \
    ORVANE_PY_ACCESS_plain(name, Name)                                                  \
  } else {                                                                             \
    ORVANE_PY_ACCESS_readOnly(name, Name)                                               \
  }
#define ORVANE_PY_ACCESS_readOnly(name, Name)        \
  cls.def_property_readonly(::orvane::python::pyName(#name).c_str(), ORVANE_PY_GETTER(name));
// A back-reference is the owner's to set: reading it gives the owner or None.
#define ORVANE_PY_ACCESS_backRef(name, Name) ORVANE_PY_ACCESS_readOnly(name, Name)
#define ORVANE_PY_ACCESS_observedBackRef(name, Name) ORVANE_PY_ACCESS_readOnly(name, Name)
#define ORVANE_PY_FIELD(name, Name, Type, key, read, write, param, access) \
  ORVANE_PY_ACCESS_##access(name, Name)
#define ORVANE_PY_PARTIAL_FIELD(name, Name, Type, read, access) ORVANE_PY_ACCESS_##access(name, Name)

/// A `make` argument, by its make column: given ones must be passed, the others default as
/// `make` defaults them.
#define ORVANE_PY_ARG_MEMBER(name) ::orvane::python::MemberType<decltype(F::name)>
#define ORVANE_PY_ARG_given(name) kw.template required<ORVANE_PY_ARG_MEMBER(name)>(#name),
#define ORVANE_PY_ARG_OPTIONAL(name) \
  kw.template optional<decltype(F::name), ORVANE_PY_ARG_MEMBER(name)>
#define ORVANE_PY_ARG_localId(name) \
  ORVANE_PY_ARG_OPTIONAL(name)(#name, [] { return ORVANE_PY_ARG_MEMBER(name)::local(); }),
#define ORVANE_PY_ARG_currentDate(name) \
  ORVANE_PY_ARG_OPTIONAL(name)(#name, [] { return ::orvane::now(); }),
#define ORVANE_PY_ARG_empty(name) \
  ORVANE_PY_ARG_OPTIONAL(name)(#name, [] { return ORVANE_PY_ARG_MEMBER(name){}; }),
#define ORVANE_PY_ARG_none(name)
#define ORVANE_PY_ARG(name, Name, Type, key, read, write, param, access) ORVANE_PY_ARG_##param(name)

/// Defines `bindName<T>(cls)` (the attributes of LIST) and, when MAKE_LIST is given,
/// `makeName<T>(kwargs)` (the keyword constructor over MAKE_LIST, in its order).
#define ORVANE_PY_ATTRIBUTES(fn, LIST)                  \
  template <class T, class C>                          \
  void fn(C& cls) {                                    \
    LIST(ORVANE_PY_FIELD)                              \
  }
#define ORVANE_PY_PARTIAL_ATTRIBUTES(fn, LIST)          \
  template <class T, class C>                          \
  void fn(C& cls) {                                    \
    LIST(ORVANE_PY_PARTIAL_FIELD)                      \
  }
#define ORVANE_PY_CONSTRUCTOR(fn, MAKE_LIST)                                          \
  template <class T>                                                                 \
  ::orvane::Ref<T> fn(const char* typeName, const ::orvane::python::py::kwargs& given) { \
    using F = typename T::Fields;                                                    \
    ::orvane::python::Keywords kw(typeName, given);                                  \
    F fields{MAKE_LIST(ORVANE_PY_ARG)};                                              \
    kw.done();                                                                       \
    return T::make(std::move(fields));                                               \
  }

/// The Python class of `T` under `scope`, named `name`, with what `dump` and `encode` need.
template <class T, class... Bases>
py::class_<T, Bases..., Ref<T>> recordClass(py::handle scope, const char* name,
                                            std::string typeName) {
  py::class_<T, Bases..., Ref<T>> cls(scope, name);
  static const ClassOps ops{
      std::move(typeName),
      [](py::handle value, FieldVisitor& v) { describe(v, value.cast<Ref<T>>()); },
      [](py::handle value, const JsonEncoderOptions& options) {
        return JsonEncoder(options).encode(value.cast<Ref<T>>());
      }};
  registerClass(cls, ops);
  registerValue(typeid(Ref<T>), [](std::any& value) {
    return py::cast(std::any_cast<Ref<T>&>(value));
  });
  cls.def("__repr__", [](const T& r) {
    std::string text = "<orvane." + std::string(ops.typeName);
    if constexpr (requires { r.identifier(); }) {
      text += " " + std::string(py::str(py::cast(r.identifier())));
    }
    if constexpr (requires { r.name(); }) {
      text += " " + std::string(py::repr(py::cast(r.name())));
    }
    return text + ">";
  });
  return cls;
}

/// The Python class of a decode-only `Partial`: a value, read through its attributes.
template <class T>
py::class_<T> partialClass(py::handle scope, const char* name, std::string typeName) {
  py::class_<T> cls(scope, name);
  static const ClassOps ops{
      std::move(typeName), [](py::handle value, FieldVisitor& v) { describe(v, value.cast<const T&>()); },
      [](py::handle value, const JsonEncoderOptions& options) {
        return JsonEncoder(options).encode(value.cast<const T&>());
      }};
  registerClass(cls, ops);
  registerValue(typeid(T), [](std::any& value) { return py::cast(std::any_cast<T&>(value)); });
  cls.def("__repr__", [](const T&) { return "<orvane." + std::string(ops.typeName) + ">"; });
  return cls;
}

}  // namespace orvane::python
