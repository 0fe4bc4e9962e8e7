// The document that describes an extension, and its author.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/integrations/Extension.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

/// Who wrote an extension; every member may be missing.
class Extension::Author {
 public:
#define ORVANE_EXTENSION_AUTHOR_FIELDS(F)                                                   \
  F(name, Name, std::optional<std::string>, "name", optional, whenPresent, given, plain)    \
  F(email, Email, std::optional<std::string>, "email", optional, whenPresent, given, plain) \
  F(url, Url, std::optional<orvane::Url>, "url", optional, whenPresent, given, plain)
  ORVANE_FIELDS(Author, ORVANE_EXTENSION_AUTHOR_FIELDS)

 public:
  /// Takes name, e-mail address and address, each of which may be empty.
  static Ref<Author> make(Fields fields);
  /// Every member may be missing; an "url" that is no valid address fails.
  static Ref<Author> decode(const Decoder& decoder);
  /// Writes each member that is present.
  void encode(Encoder& encoder) const;
};

/// A document of its own, found at an extension's `manifestURL`: what the extension is, who
/// wrote it, the settings it offers and where its module lives. Read, never written.
class Extension::Manifest {
 public:
  /// `extension` is a weak reference, empty until someone sets it.
#define ORVANE_EXTENSION_MANIFEST_FIELDS(F)                                                        \
  F(name, Name, std::string, "name", required, never, given, plain)                                \
  F(description, Description, std::optional<std::string>, "description", optional, never, given,   \
    plain)                                                                                         \
  F(version, Version, std::string, "version", required, never, given, plain)                       \
  F(author, Author, Ref<Extension::Author>, "author", optional, never, given, plain)               \
  F(repositoryURL, RepositoryURL, std::optional<Url>, "repository", optional, never, given, plain) \
  F(options, Options, std::optional<std::vector<Ref<Option>>>, "options", optional, never, given,  \
    plain)                                                                                         \
  F(moduleURL, ModuleURL, Url, "moduleURL", required, never, given, plain)                         \
  F(extension, Extension, WeakRef<orvane::Extension>, none, none, never, none, backRef)
  ORVANE_FIELDS(Manifest, ORVANE_EXTENSION_MANIFEST_FIELDS)

 public:
  /// Takes every coded field; `extension` stays empty.
  static Ref<Manifest> make(Fields fields);
  /// Leaves `extension` empty: whoever loads the manifest for an extension sets it.
  static Ref<Manifest> decode(const Decoder& decoder);
};

}  // namespace orvane
