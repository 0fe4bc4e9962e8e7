// Ownership vocabulary shared by every record.
#pragma once

#include <memory>
#include <string_view>

namespace orvane {

/// A reference-type record always lives behind a shared pointer, so that its children can hold
/// weak back-references to it.
template <class T>
using Ref = std::shared_ptr<T>;

/// A weak back-reference from a child to its owner.
template <class T>
using WeakRef = std::weak_ptr<T>;

/// Lets `make_shared` reach a constructor that nobody else can call: records are built only
/// through their `make` and `decode` functions, always inside a `Ref`.
template <class T>
class Passkey {
  friend T;
  Passkey() = default;
};

/// Ends the process after writing `file:line: Fatal error: message` to standard error. Used for
/// programming errors that the model treats as fatal (abstract paths, missing owners).
[[noreturn]] void fatalError(std::string_view message, std::string_view file, int line);

}  // namespace orvane
