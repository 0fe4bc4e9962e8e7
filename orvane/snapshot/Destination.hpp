// Where a hotspot link leads.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>

namespace orvane {

class Destination {
 public:
  /// A named screen, or back to the previous one.
  class Kind {
   public:
    enum class Key { previous, screen };
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

  struct CodingKeys {
    static constexpr std::string_view kind = "type";
    static constexpr std::string_view name = "name";
  };

  Destination(Passkey<Destination>, std::optional<Kind> kind) : kind_(std::move(kind)) {}

  static Ref<Destination> make(std::optional<Kind> kind);
  static Ref<Destination> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const std::optional<Kind>& kind() const { return kind_; }
  void setKind(std::optional<Kind> value) { kind_ = std::move(value); }

 private:
  std::optional<Kind> kind_;
};

template <>
struct EnumTraits<Destination::Kind::Key> {
  static constexpr std::string_view typeName = "Key";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Destination::Kind::Key>, 2> cases{{
      {Destination::Kind::Key::previous, "previous", "previous"},
      {Destination::Kind::Key::screen, "screen", "screen"},
  }};
};

}  // namespace orvane
