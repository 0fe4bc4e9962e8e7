#include <orvane/integrations/Extension.hpp>

#include <algorithm>

#include <orvane/values/CanonicalText.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

// --- Extension --------------------------------------------------------------------------

Ref<Extension> Extension::make(std::string name, std::optional<std::string> description,
                               Url manifestURL, bool isDefault, Identifier identifier) {
  return makeRef<Extension>(Passkey<Extension>{}, std::move(identifier), std::move(name),
                                     std::move(description), std::move(manifestURL), isDefault);
}

Ref<Extension> Extension::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto identifier = c.decode<Identifier>(K::identifier);
  auto name = c.decodeString(K::name);
  auto description = c.decodeStringIfPresent(K::description);
  auto manifestURL = c.decodeUrl(K::manifestURL);
  auto isDefault = c.decodeBool(K::isDefault);
  return make(std::move(name), std::move(description), std::move(manifestURL), isDefault,
              std::move(identifier));
}

void Extension::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  if (!identifier_.isLocal()) c.encode(K::identifier, identifier_.rawValue());
  c.encode(K::name, name_);
  c.encodeIfPresent(K::description, description_);
  c.encode(K::manifestURL, manifestURL_);
  c.encode(K::isDefault, isDefault_);
}

void Extension::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("description", description_);
  v.field("manifestURL", manifestURL_);
  v.field("isDefault", isDefault_);
}

// --- Author -----------------------------------------------------------------------------

Ref<Extension::Author> Extension::Author::make(std::optional<std::string> name,
                                               std::optional<std::string> email,
                                               std::optional<Url> url) {
  return makeRef<Author>(Passkey<Author>{}, std::move(name), std::move(email),
                                  std::move(url));
}

Ref<Extension::Author> Extension::Author::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto name = c.decodeStringIfPresent(K::name);
  auto email = c.decodeStringIfPresent(K::email);
  auto url = c.decodeUrlIfPresent(K::url);
  return make(std::move(name), std::move(email), std::move(url));
}

void Extension::Author::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encodeIfPresent(K::name, name_);
  c.encodeIfPresent(K::email, email_);
  c.encodeIfPresent(K::url, url_);
}

void Extension::Author::visitFields(FieldVisitor& v) const {
  v.field("name", name_);
  v.field("email", email_);
  v.field("url", url_);
}

// --- Manifest ---------------------------------------------------------------------------

Ref<Extension::Manifest> Extension::Manifest::make(std::string name,
                                                   std::optional<std::string> description,
                                                   std::string version, Ref<Author> author,
                                                   std::optional<Url> repositoryURL,
                                                   std::optional<std::vector<Ref<Option>>> options,
                                                   Url moduleURL) {
  return makeRef<Manifest>(Passkey<Manifest>{}, std::move(name), std::move(description),
                                    std::move(version), std::move(author), std::move(repositoryURL),
                                    std::move(options), std::move(moduleURL));
}

Ref<Extension::Manifest> Extension::Manifest::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto name = c.decodeString(K::name);
  auto description = c.decodeStringIfPresent(K::description);
  auto version = c.decodeString(K::version);
  auto author = c.decodeIfPresent<Ref<Author>>(K::author);
  auto repositoryURL = c.decodeUrlIfPresent(K::repositoryURL);
  auto options = c.decodeIfPresent<std::vector<Ref<Option>>>(K::options);
  auto moduleURL = c.decodeUrl(K::moduleURL);
  return make(std::move(name), std::move(description), std::move(version), std::move(author),
              std::move(repositoryURL), std::move(options), std::move(moduleURL));
}

void Extension::Manifest::visitFields(FieldVisitor& v) const {
  v.field("name", name_);
  v.field("description", description_);
  v.field("version", version_);
  v.field("author", author_);
  v.field("repositoryURL", repositoryURL_);
  v.field("options", options_);
  v.field("moduleURL", moduleURL_);
  v.field("extension", extension_);
}

// --- Option -----------------------------------------------------------------------------

Extension::Option::PickerOption Extension::Option::PickerOption::decode(const Decoder& decoder) {
  auto c = decoder.container();
  PickerOption option;
  option.name = c.decodeString(CodingKeys::name);
  option.value = c.decodeString(CodingKeys::value);
  return option;
}

void Extension::Option::PickerOption::visitFields(FieldVisitor& v) const {
  v.field("name", name);
  v.field("value", value);
}

Extension::Option::Kind::Key Extension::Option::Kind::key() const {
  if (asSwitch()) return Key::switch_;
  if (asText()) return Key::text;
  return Key::picker;
}

void Extension::Option::Kind::visitFields(FieldVisitor& v) const {
  v.field("case", key());
  if (const auto* s = asSwitch()) {
    v.field("defaultValue", s->defaultValue);
  } else if (const auto* t = asText()) {
    v.field("defaultValue", t->defaultValue);
  } else if (const auto* p = asPicker()) {
    v.field("options", p->options);
    v.field("defaultOption", p->defaultOption);
  }
}

Ref<Extension::Option> Extension::Option::make(std::string identifier, std::string name,
                                               std::optional<Kind> kind) {
  return makeRef<Option>(Passkey<Option>{}, std::move(identifier), std::move(name),
                                  std::move(kind));
}

Ref<Extension::Option> Extension::Option::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto identifier = c.decodeString(K::identifier);
  auto name = c.decodeString(K::name);
  std::optional<Kind> kind;
  // Without a known "type" the rest of the object means nothing, so it is not read at all.
  if (auto key = c.decodeTolerant<Kind::Key>(K::kind)) {
    switch (*key) {
      case Kind::Key::switch_:
        kind = Kind::switch_(c.decodeBool(K::defaultValue));
        break;
      case Kind::Key::text:
        kind = Kind::text(c.decodeString(K::defaultValue));
        break;
      case Kind::Key::picker: {
        auto defaultValue = c.decodeString(K::defaultValue);
        auto array = c.nestedUnkeyedContainer(K::pickerOptions);
        std::vector<PickerOption> options;
        options.reserve(array.count());
        while (!array.isAtEnd()) options.push_back(array.decode<PickerOption>());
        auto match = std::find_if(options.begin(), options.end(), [&](const PickerOption& o) {
          return canonicallyEquivalent(o.value, defaultValue);
        });
        if (match == options.end()) {
          CodingPathLink link{c.pathLink(), K::defaultValue};
          throw DecodingError::dataCorrupted(&link,
                                             "Locating default value in option values failed.");
        }
        PickerOption defaultOption = *match;
        kind = Kind::picker(std::move(options), std::move(defaultOption));
        break;
      }
    }
  }
  return make(std::move(identifier), std::move(name), std::move(kind));
}

void Extension::Option::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("kind", kind_);
}

}  // namespace orvane
