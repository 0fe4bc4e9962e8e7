// What an area is painted with: a solid color or a gradient.
#pragma once

#include <optional>
#include <string_view>
#include <variant>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/styles/Gradient.hpp>
#include <orvane/values/BlendMode.hpp>
#include <orvane/values/Color.hpp>

namespace orvane {

/// A color or gradient at an optional opacity and with an optional blend mode.
class Fill {
 public:
  /// The paint. Its case is named by "fillType" and its payload stands under the case's name.
  class Kind {
   public:
#define ORVANE_FILL_KIND_KEY(C) C(color, "color") C(gradient, "gradient")
    /// The case, as "fillType" names it.
    ORVANE_ENUM(Key, ORVANE_FILL_KIND_KEY)
    /// The payload of a solid fill, under "color".
    struct Color {
      Ref<orvane::Color> color;  ///< never null once decoded
    };
    /// The payload of a gradient fill, under "gradient".
    struct Gradient {
      Ref<orvane::Gradient> gradient;  ///< never null once decoded
    };

    ///@{

    /// The kind of that case, with its payload.
    static Kind color(Ref<orvane::Color> color) { return Kind(Color{std::move(color)}); }
    static Kind gradient(Ref<orvane::Gradient> gradient) {
      return Kind(Gradient{std::move(gradient)});
    }
    ///@}

    /// Which case this is.
    Key key() const { return std::holds_alternative<Color>(value_) ? Key::color : Key::gradient; }
    ///@{

    /// The payload of the case, or null for the other case.
    const Color* asColor() const { return std::get_if<Color>(&value_); }
    const Gradient* asGradient() const { return std::get_if<Gradient>(&value_); }
    ///@}

    /// Lists "case", then the payload's member.
    void visitFields(FieldVisitor& v) const;

   private:
    explicit Kind(std::variant<Color, Gradient> value) : value_(std::move(value)) {}
    std::variant<Color, Gradient> value_;
  };

  /// The keys of the kind's payloads, beside "fillType".
  struct KindKeys {
    static constexpr std::string_view color = "color";        ///< a solid fill's color
    static constexpr std::string_view gradient = "gradient";  ///< a gradient fill's gradient
  };

  // Only the member of the case named by "fillType" is read; without a known case neither is.
#define ORVANE_FILL_FIELDS(F)                                                                  \
  F(kind, Kind, std::optional<Kind>, "fillType", custom, custom, given, plain)                 \
  F(opacity, Opacity, std::optional<double>, "opacity", optional, whenPresent, given, plain)   \
  F(blendMode, BlendMode, std::optional<orvane::BlendMode>, "blendMode", tolerant, whenPresent, \
    given, plain)
  ORVANE_FIELDS(Fill, ORVANE_FILL_FIELDS)

 public:
  /// Takes the kind, opacity and blend mode, each of which may be empty.
  static Ref<Fill> make(Fields fields);
  /// An unknown or unreadable "fillType" leaves no kind and reads no payload; a known one
  /// requires its payload ("color" or "gradient"), whose failure fails the fill.
  static Ref<Fill> decode(const Decoder& decoder);
  /// Writes "fillType" and its payload when there is a kind, then "opacity" and "blendMode"
  /// when present.
  void encode(Encoder& encoder) const;
  ///@{

  /// For a record whose object holds the fill's members beside its own (a border): reads from,
  /// or writes into, that record's container, as the two above do.
  static Ref<Fill> decode(const Decoder& decoder, const KeyedDecodingContainer& c);
  void encode(KeyedEncodingContainer& c) const;
  void encodeDocument(KeyedEncodingContainer& c) const;
  ///@}
};

ORVANE_ENUM_TRAITS(Fill::Kind::Key, "Key", ORVANE_FILL_KIND_KEY, false)

}  // namespace orvane
