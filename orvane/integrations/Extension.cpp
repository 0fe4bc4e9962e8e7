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

void Extension::Option::PickerOption::encodeDocument(Encoder& encoder) const {
  auto c = encoder.container();
  c.encode(CodingKeys::name, name);
  c.encode(CodingKeys::value, value);
}

void Extension::Option::PickerOption::describeSchema(SchemaVisitor& visitor) {
  visitor.member({CodingKeys::name, SchemaRead::required, "name"}, Schema<std::string>::shape);
  visitor.member({CodingKeys::value, SchemaRead::required, "value"}, Schema<std::string>::shape);
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

// The default of a picker is written as its value: decoding finds it again among the options.
void Option::documentKind(KeyedEncodingContainer& c) const {
  using K = PayloadCodingKeys;
  if (!kind_) return;
  c.encode(CodingKeys::kind, kind_->key());
  if (const auto* s = kind_->asSwitch()) {
    c.encode(K::defaultValue, s->defaultValue);
  } else if (const auto* t = kind_->asText()) {
    c.encode(K::defaultValue, t->defaultValue);
  } else if (const auto* p = kind_->asPicker()) {
    c.encode(K::defaultValue, p->defaultOption.value);
    c.encode(K::pickerOptions, p->options);
  }
}

void Option::describeKind(SchemaVisitor& v) {
  using K = PayloadCodingKeys;
  v.member({CodingKeys::kind, SchemaRead::tolerant, "kind"}, Schema<Kind::Key>::shape);
  v.beginCase(CodingKeys::kind, rawValue(Kind::Key::switch_));
  v.member({K::defaultValue, SchemaRead::required, "kind.defaultValue"}, Schema<bool>::shape);
  v.endCase();
  v.beginCase(CodingKeys::kind, rawValue(Kind::Key::text));
  v.member({K::defaultValue, SchemaRead::required, "kind.defaultValue"},
           Schema<std::string>::shape);
  v.endCase();
  v.beginCase(CodingKeys::kind, rawValue(Kind::Key::picker));
  v.member({.key = K::defaultValue,
            .read = SchemaRead::required,
            .field = "kind.defaultOption",
            .remark = "The value of one of the options."},
           Schema<std::string>::shape);
  v.member({K::pickerOptions, SchemaRead::required, "kind.options"},
           Schema<std::vector<PickerOption>>::shape);
  v.endCase();
}

}  // namespace orvane
