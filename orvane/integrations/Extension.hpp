// An extension that a project can use, as the service lists it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/coding/Ref.hpp>
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

  Extension(Passkey<Extension>, Identifier identifier, std::string name,
            std::optional<std::string> description, Url manifestURL, bool isDefault)
      : identifier_(std::move(identifier)),
        name_(std::move(name)),
        description_(std::move(description)),
        manifestURL_(std::move(manifestURL)),
        isDefault_(isDefault) {}

  static Ref<Extension> make(std::string name, std::optional<std::string> description,
                             Url manifestURL, bool isDefault,
                             Identifier identifier = Identifier::local());
  static Ref<Extension> decode(const Decoder& decoder);
  /// Writes the identifier only when the service assigned it (it is not local).
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  const std::string& name() const { return name_; }
  void setName(std::string value) { name_ = std::move(value); }
  const std::optional<std::string>& description() const { return description_; }
  void setDescription(std::optional<std::string> value) { description_ = std::move(value); }
  const Url& manifestURL() const { return manifestURL_; }
  void setManifestURL(Url value) { manifestURL_ = std::move(value); }
  bool isDefault() const { return isDefault_; }
  void setIsDefault(bool value) { isDefault_ = value; }

 private:
  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view name = "name";
    static constexpr std::string_view description = "description";
    static constexpr std::string_view manifestURL = "manifestURL";
    static constexpr std::string_view isDefault = "default";
  };

  Identifier identifier_;
  std::string name_;
  std::optional<std::string> description_;
  Url manifestURL_;
  bool isDefault_;
};

}  // namespace orvane

#include <orvane/integrations/Extension+Manifest.hpp>
#include <orvane/integrations/Extension+Option.hpp>
