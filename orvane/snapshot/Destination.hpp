// Where a hotspot link leads.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>

namespace orvane {

/// Where a hotspot link leads; a destination without a kind leads nowhere the model knows.
class Destination {
 public:
  /// A named screen, or back to the previous one.
  class Kind {
   public:
#define ORVANE_DESTINATION_KIND_KEY(C) C(previous, "previous") C(screen, "screen")
    /// The case, as "type" names it.
    ORVANE_ENUM(Key, ORVANE_DESTINATION_KIND_KEY)
    /// A screen, named as the design names it; nothing resolves the name.
    struct Screen {
      std::string name;  ///< under "name", required for this case
    };
    /// Back to the screen shown before; no payload.
    struct Previous {};

    ///@{

    /// The kind of that case, with its payload.
    static Kind screen(std::string name) { return Kind(Screen{std::move(name)}); }
    static Kind previous() { return Kind(Previous{}); }
    ///@}

    /// Which case this is.
    Key key() const { return std::holds_alternative<Screen>(value_) ? Key::screen : Key::previous; }
    /// The screen's payload, or null for `previous`.
    const Screen* asScreen() const { return std::get_if<Screen>(&value_); }
    /// Lists "case", and "name" for a screen.
    void visitFields(FieldVisitor& v) const;

   private:
    explicit Kind(std::variant<Screen, Previous> value) : value_(std::move(value)) {}
    std::variant<Screen, Previous> value_;
  };

  /// The key of the screen's payload, beside "type".
  struct KindKeys {
    static constexpr std::string_view name = "name";  ///< the screen's name
  };

#define ORVANE_DESTINATION_FIELDS(F) \
  F(kind, Kind, std::optional<Kind>, "type", custom, custom, given, plain)
  ORVANE_FIELDS(Destination, ORVANE_DESTINATION_FIELDS)

 public:
  /// Takes the kind, which may be empty.
  static Ref<Destination> make(Fields fields);
  /// An unknown or unreadable "type" gives a destination without kind; "screen" fails without
  /// a string "name".
  static Ref<Destination> decode(const Decoder& decoder);
  /// Writes "type", and "name" for a screen; without a kind, an empty object.
  void encode(Encoder& encoder) const;
};

ORVANE_ENUM_TRAITS(Destination::Kind::Key, "Key", ORVANE_DESTINATION_KIND_KEY, false)

}  // namespace orvane
