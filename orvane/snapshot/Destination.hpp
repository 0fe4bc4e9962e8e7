// Where a hotspot link leads.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>

namespace orvane {

class Destination {
 public:
  /// A named screen, or back to the previous one.
  class Kind {
   public:
#define ORVANE_DESTINATION_KIND_KEY(C) C(previous, "previous") C(screen, "screen")
    ORVANE_ENUM(Key, ORVANE_DESTINATION_KIND_KEY)
    struct Screen {
      std::string name;
    };
    struct Previous {};

    static Kind screen(std::string name) { return Kind(Screen{std::move(name)}); }
    static Kind previous() { return Kind(Previous{}); }

    Key key() const { return std::holds_alternative<Screen>(value_) ? Key::screen : Key::previous; }
    /// The screen's payload, or null for `previous`.
    const Screen* asScreen() const { return std::get_if<Screen>(&value_); }
    void visitFields(FieldVisitor& v) const;

   private:
    explicit Kind(std::variant<Screen, Previous> value) : value_(std::move(value)) {}
    std::variant<Screen, Previous> value_;
  };

  /// The key of the screen's payload, beside "type".
  struct KindKeys {
    static constexpr std::string_view name = "name";
  };

#define ORVANE_DESTINATION_FIELDS(F) \
  F(kind, Kind, std::optional<Kind>, "type", custom, custom, given, plain)
  ORVANE_FIELDS(Destination, ORVANE_DESTINATION_FIELDS)

 public:
  static Ref<Destination> make(Fields fields);
  static Ref<Destination> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
};

ORVANE_ENUM_TRAITS(Destination::Kind::Key, "Key", ORVANE_DESTINATION_KIND_KEY, false)

}  // namespace orvane
