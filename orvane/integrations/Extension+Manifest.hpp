// The document that describes an extension, and its author.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Url.hpp>
#include <orvane/integrations/Extension.hpp>

namespace orvane {

/// Who wrote an extension; every member may be missing.
class Extension::Author {
 public:
  Author(Passkey<Author>, std::optional<std::string> name, std::optional<std::string> email,
         std::optional<Url> url)
      : name_(std::move(name)), email_(std::move(email)), url_(std::move(url)) {}

  static Ref<Author> make(std::optional<std::string> name, std::optional<std::string> email,
                          std::optional<Url> url);
  static Ref<Author> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const std::optional<std::string>& name() const { return name_; }
  void setName(std::optional<std::string> value) { name_ = std::move(value); }
  const std::optional<std::string>& email() const { return email_; }
  void setEmail(std::optional<std::string> value) { email_ = std::move(value); }
  const std::optional<Url>& url() const { return url_; }
  void setUrl(std::optional<Url> value) { url_ = std::move(value); }

 private:
  struct CodingKeys {
    static constexpr std::string_view name = "name";
    static constexpr std::string_view email = "email";
    static constexpr std::string_view url = "url";
  };

  std::optional<std::string> name_;
  std::optional<std::string> email_;
  std::optional<Url> url_;
};

/// A document of its own, found at an extension's `manifestURL`: what the extension is, who
/// wrote it, the settings it offers and where its module lives. Read, never written.
class Extension::Manifest {
 public:
  Manifest(Passkey<Manifest>, std::string name, std::optional<std::string> description,
           std::string version, Ref<Author> author, std::optional<Url> repositoryURL,
           std::optional<std::vector<Ref<Option>>> options, Url moduleURL)
      : name_(std::move(name)),
        description_(std::move(description)),
        version_(std::move(version)),
        author_(std::move(author)),
        repositoryURL_(std::move(repositoryURL)),
        options_(std::move(options)),
        moduleURL_(std::move(moduleURL)) {}

  static Ref<Manifest> make(std::string name, std::optional<std::string> description,
                            std::string version, Ref<Author> author,
                            std::optional<Url> repositoryURL,
                            std::optional<std::vector<Ref<Option>>> options, Url moduleURL);
  /// Leaves `extension` empty: whoever loads the manifest for an extension sets it.
  static Ref<Manifest> decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const;

  const std::string& name() const { return name_; }
  void setName(std::string value) { name_ = std::move(value); }
  const std::optional<std::string>& description() const { return description_; }
  void setDescription(std::optional<std::string> value) { description_ = std::move(value); }
  const std::string& version() const { return version_; }
  void setVersion(std::string value) { version_ = std::move(value); }
  const Ref<Author>& author() const { return author_; }
  void setAuthor(Ref<Author> value) { author_ = std::move(value); }
  const std::optional<Url>& repositoryURL() const { return repositoryURL_; }
  void setRepositoryURL(std::optional<Url> value) { repositoryURL_ = std::move(value); }
  const std::optional<std::vector<Ref<Option>>>& options() const { return options_; }
  void setOptions(std::optional<std::vector<Ref<Option>>> value) { options_ = std::move(value); }
  const Url& moduleURL() const { return moduleURL_; }
  void setModuleURL(Url value) { moduleURL_ = std::move(value); }
  /// The extension this manifest describes; a weak reference, empty until someone sets it.
  Ref<Extension> extension() const { return extension_.lock(); }
  void setExtension(const Ref<Extension>& value) { extension_ = value; }

 private:
  struct CodingKeys {
    static constexpr std::string_view name = "name";
    static constexpr std::string_view description = "description";
    static constexpr std::string_view version = "version";
    static constexpr std::string_view author = "author";
    static constexpr std::string_view repositoryURL = "repository";
    static constexpr std::string_view options = "options";
    static constexpr std::string_view moduleURL = "moduleURL";
  };

  std::string name_;
  std::optional<std::string> description_;
  std::string version_;
  Ref<Author> author_;
  std::optional<Url> repositoryURL_;
  std::optional<std::vector<Ref<Option>>> options_;
  Url moduleURL_;
  WeakRef<Extension> extension_;
};

}  // namespace orvane
