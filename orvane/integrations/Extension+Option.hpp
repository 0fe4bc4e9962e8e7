// A setting that an extension's manifest offers.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/integrations/Extension.hpp>

namespace orvane {

/// One adjustable setting: an identifier, a display name and how it is edited with its
/// default. Read from manifests only, never written.
class Extension::Option {
 public:
  /// One named value that a picker offers.
  struct PickerOption {
    std::string name;   ///< what the user sees
    std::string value;  ///< what the setting stores

    /// Fails without a string "name" or "value".
    static PickerOption decode(const Decoder& decoder);
    /// Writes "name" and "value", what `decode` reads.
    void encodeDocument(Encoder& encoder) const;
    /// "name" and "value", both required strings.
    static void describeSchema(SchemaVisitor& visitor);
    /// Lists both members.
    void visitFields(FieldVisitor& v) const;
    /// Equal when both members are byte for byte (a picker's default is found by canonical
    /// equivalence instead).
    bool operator==(const PickerOption&) const = default;

   private:
    struct CodingKeys {
      static constexpr std::string_view name = "name";
      static constexpr std::string_view value = "value";
    };
  };

  /// How the setting is edited, with its default. `switch` is a C++ keyword, so that case is
  /// spelled `switch_` in code; documents and debug views spell it "switch".
  class Kind {
   public:
    /// The case, as "type" names it.
    enum class Key {
      switch_,  ///< "switch"
      text,     ///< "text"
      picker,   ///< "picker"
    };

    /// An on/off setting.
    struct Switch {
      bool defaultValue;  ///< under "default", required for this case
    };
    /// A free-text setting.
    struct Text {
      std::string defaultValue;  ///< under "default", required for this case
    };
    /// `defaultOption` is a copy of the option chosen by default; decoding guarantees that it
    /// equals one of `options`.
    struct Picker {
      std::vector<PickerOption> options;  ///< under "options", in the manifest's order
      PickerOption defaultOption;         ///< the option whose value is "default"
    };

    ///@{

    /// The kind of that case, with its payload. `picker` does not check that the default is
    /// one of the options; decoding does.
    static Kind switch_(bool defaultValue) { return Kind(Switch{defaultValue}); }
    static Kind text(std::string defaultValue) { return Kind(Text{std::move(defaultValue)}); }
    static Kind picker(std::vector<PickerOption> options, PickerOption defaultOption) {
      return Kind(Picker{std::move(options), std::move(defaultOption)});
    }
    ///@}

    /// Which case this is.
    Key key() const;
    ///@{

    /// The payload of that case, or null for another case.
    const Switch* asSwitch() const { return std::get_if<Switch>(&value_); }
    const Text* asText() const { return std::get_if<Text>(&value_); }
    const Picker* asPicker() const { return std::get_if<Picker>(&value_); }
    ///@}

    /// Lists "case", then the payload's members.
    void visitFields(FieldVisitor& v) const;

   private:
    explicit Kind(std::variant<Switch, Text, Picker> value) : value_(std::move(value)) {}
    std::variant<Switch, Text, Picker> value_;
  };

  /// `identifier` is a plain string, not an `Identifier`. An unreadable or unknown "type" gives an
  /// option without kind and nothing more is read.
#define ORVANE_EXTENSION_OPTION_FIELDS(F)                                     \
  F(identifier, Identifier, std::string, "id", required, never, given, plain) \
  F(name, Name, std::string, "name", required, never, given, plain)           \
  F(kind, Kind, std::optional<Kind>, "type", custom, never, given, plain)
  ORVANE_FIELDS(Option, ORVANE_EXTENSION_OPTION_FIELDS)

 public:
  /// Takes identifier, name and kind as given: nothing is checked.
  static Ref<Option> make(Fields fields);
  /// A picker whose default is none of its values fails with dataCorrupted at "default".
  static Ref<Option> decode(const Decoder& decoder);

 private:
  /// The keys of a kind's payload, beside "type".
  struct PayloadCodingKeys {
    static constexpr std::string_view defaultValue = "default";
    static constexpr std::string_view pickerOptions = "options";
  };
};

/// The table of an option kind's cases, spelled out: `switch` is a keyword, so that case's name
/// differs from its enumerator.
template <>
struct EnumTraits<Extension::Option::Kind::Key> {
  static constexpr std::string_view typeName = "Key";  ///< as messages name the type
  static constexpr bool hasAllCases = false;           ///< no `allCases()`
  /// Raw value and debug name "switch" for `switch_`.
  static constexpr std::array<EnumCase<Extension::Option::Kind::Key>, 3> cases{{
      {Extension::Option::Kind::Key::switch_, "switch", "switch"},
      {Extension::Option::Kind::Key::text, "text", "text"},
      {Extension::Option::Kind::Key::picker, "picker", "picker"},
  }};
};

}  // namespace orvane
