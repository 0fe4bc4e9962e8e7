// The one color value of the library.
#pragma once

#include <orvane/coding/Fields.hpp>

namespace orvane {

namespace detail {

/// A base for records that have subclasses (colors, text styles): the generated `visitFields`
/// and `encodeDocument` override the ones declared here, so a listing or a document form
/// through the base shows the subclass's fields.
class OverridableFields {
 public:
  virtual ~OverridableFields() = default;
  virtual void visitFields(FieldVisitor& visitor) const = 0;
  virtual void encodeDocument(Encoder& encoder) const = 0;

 protected:
  OverridableFields() = default;
  OverridableFields(const OverridableFields&) = default;
  OverridableFields& operator=(const OverridableFields&) = default;
};

}  // namespace detail

/// Red, green, blue and alpha, stored exactly as set or read: no range is imposed.
class Color : public detail::OverridableFields {
 public:
#define ORVANE_COLOR_FIELDS(F)                                     \
  F(red, Red, double, "r", required, always, given, plain)         \
  F(green, Green, double, "g", required, always, given, plain)     \
  F(blue, Blue, double, "b", required, always, given, plain)       \
  F(alpha, Alpha, double, "a", required, always, given, plain)
  ORVANE_FIELDS(Color, ORVANE_COLOR_FIELDS)

 public:
  /// Takes the four components as given.
  static Ref<Color> make(Fields fields);
  /// Fails unless "r", "g", "b" and "a" are all present and numbers.
  static Ref<Color> decode(const Decoder& decoder);
  /// Writes "r", "g", "b", "a"; a non-finite component raises EncodingError.
  virtual void encode(Encoder& encoder) const;

 protected:
  ///@{

  /// For a subclass, whose own `make` or decoding fills the components.
  Color() = default;
  Color(const Color&) = default;
  Color& operator=(const Color&) = default;
  ///@}
};

}  // namespace orvane
