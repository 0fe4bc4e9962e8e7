// An extension that a project can use, as the service lists it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

/// An extension: identity, name, description, the address of its manifest and whether it is
/// one of the defaults. Projects hold extensions that the client fills in; project documents do
/// not carry them.
class Extension {
 public:
  class Manifest;
  class Author;
  class Option;

#define ORVANE_EXTENSION_FIELDS(F)                                                              \
  F(identifier, Identifier, Identifier, "_id", required, unlessLocal, localId, plain)           \
  F(name, Name, std::string, "name", required, always, given, plain)                            \
  F(description, Description, std::optional<std::string>, "description", optional, whenPresent, \
    given, plain)                                                                               \
  F(manifestURL, ManifestURL, Url, "manifestURL", required, always, given, plain)               \
  F(isDefault, IsDefault, bool, "default", required, always, given, plain)
  ORVANE_FIELDS(Extension, ORVANE_EXTENSION_FIELDS)

 public:
  /// The identifier defaults to a fresh local one.
  static Ref<Extension> make(Fields fields);
  /// Fails without "_id", "name", "manifestURL" or "default"; "description" may be missing.
  static Ref<Extension> decode(const Decoder& decoder);
  /// Writes the identifier only when the service assigned it (it is not local).
  void encode(Encoder& encoder) const;
};

}  // namespace orvane

#include <orvane/integrations/Extension+Manifest.hpp>
#include <orvane/integrations/Extension+Option.hpp>
