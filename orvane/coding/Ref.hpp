// Ownership vocabulary shared by every record.
#pragma once

#include <memory>

namespace orvane {

/// A reference-type record always lives behind a shared pointer, so that its children can hold
/// weak back-references to it.
template <class T>
using Ref = std::shared_ptr<T>;

/// A weak back-reference from a child to its owner.
template <class T>
using WeakRef = std::weak_ptr<T>;

/// Lets `makeRef` reach a constructor that nobody else can call: records are built only
/// through their `make` and `decode` functions, always inside a `Ref`.
template <class T>
class Passkey {
  friend T;
  Passkey() = default;
};

}  // namespace orvane
