#include <orvane/integrations/Extension.hpp>

#include <algorithm>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/values/CanonicalText.hpp>

namespace orvane {

// --- Extension --------------------------------------------------------------------------

ORVANE_PLAIN_RECORD_DEFINE(Extension, ORVANE_EXTENSION_FIELDS)

// --- Author -----------------------------------------------------------------------------

using Author = Extension::Author;
ORVANE_PLAIN_RECORD_DEFINE(Author, ORVANE_EXTENSION_AUTHOR_FIELDS)

// --- Manifest ---------------------------------------------------------------------------

using Manifest = Extension::Manifest;
ORVANE_DECODED_RECORD_DEFINE(Manifest, ORVANE_EXTENSION_MANIFEST_FIELDS)

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

using Option = Extension::Option;
ORVANE_DECODED_RECORD_DEFINE(Option, ORVANE_EXTENSION_OPTION_FIELDS)

// Without a known "type" the rest of the object means nothing, so it is not read at all.
void Option::decodeKind(const Decoder&, const KeyedDecodingContainer& c) {
  using K = PayloadCodingKeys;
  auto key = c.decodeTolerant<Kind::Key>(CodingKeys::kind);
  if (!key) return;
  switch (*key) {
    case Kind::Key::switch_:
      kind_ = Kind::switch_(c.decodeBool(K::defaultValue));
      break;
    case Kind::Key::text:
      kind_ = Kind::text(c.decodeString(K::defaultValue));
      break;
    case Kind::Key::picker: {
      auto defaultValue = c.decodeString(K::defaultValue);
      auto options = c.decode<std::vector<PickerOption>>(K::pickerOptions);
      auto match = std::find_if(options.begin(), options.end(), [&](const PickerOption& o) {
        return canonicallyEquivalent(o.value, defaultValue);
      });
      if (match == options.end()) {
        CodingPathLink link{c.pathLink(), K::defaultValue};
        throw DecodingError::dataCorrupted(&link,
                                           "Locating default value in option values failed.");
      }
      PickerOption defaultOption = *match;
      kind_ = Kind::picker(std::move(options), std::move(defaultOption));
      break;
    }
  }
}

}  // namespace orvane
