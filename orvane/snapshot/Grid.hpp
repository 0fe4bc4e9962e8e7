// The layout grid of a snapshot's artboard.
#pragma once

#include <cstdint>

#include <orvane/coding/Fields.hpp>

namespace orvane {

class Snapshot;

/// An offset with optional column and row definitions. The snapshot that holds it wires itself
/// in; the grid never keeps it alive.
class Grid {
 public:
  /// The column definition.
  class Vertical {
   public:
#define ORVANE_GRID_VERTICAL_FIELDS(F)                                                      \
  F(columnWidth, ColumnWidth, double, "columnWidth", required, always, given, plain)        \
  F(columnCount, ColumnCount, std::int64_t, "numberOfCols", required, always, given, plain) \
  F(gutterWidth, GutterWidth, double, "gutterWidth", required, always, given, plain)        \
  F(hasOutsideGutters, HasOutsideGutters, bool, "guttersOnOutside", required, always, given, \
    plain)
    ORVANE_FIELDS(Vertical, ORVANE_GRID_VERTICAL_FIELDS)

   public:
    /// Takes all four fields.
    static Ref<Vertical> make(Fields fields);
    /// Fails unless "columnWidth", "numberOfCols" (an integer), "gutterWidth" and
    /// "guttersOnOutside" (a Boolean) are all there.
    static Ref<Vertical> decode(const Decoder& decoder);
    /// Writes all four members.
    void encode(Encoder& encoder) const;
  };

  /// The row definition.
  class Horizontal {
   public:
#define ORVANE_GRID_HORIZONTAL_FIELDS(F)                                               \
  F(rowHeight, RowHeight, double, "rowHeight", required, always, given, plain)         \
  F(gutterHeight, GutterHeight, double, "gutterHeight", required, always, given, plain)
    ORVANE_FIELDS(Horizontal, ORVANE_GRID_HORIZONTAL_FIELDS)

   public:
    /// Takes both fields.
    static Ref<Horizontal> make(Fields fields);
    /// Fails unless "rowHeight" and "gutterHeight" are numbers.
    static Ref<Horizontal> decode(const Decoder& decoder);
    /// Writes both members.
    void encode(Encoder& encoder) const;
  };

#define ORVANE_GRID_FIELDS(F)                                                                 \
  F(horizontalOffset, HorizontalOffset, double, "horizontalOffset", required, always, given,  \
    plain)                                                                                    \
  F(vertical, Vertical, Ref<Grid::Vertical>, "vertical", optional, whenPresent, given, plain) \
  F(horizontal, Horizontal, Ref<Grid::Horizontal>, "horizontal", optional, whenPresent, given, \
    plain)                                                                                    \
  F(snapshot, Snapshot, WeakRef<orvane::Snapshot>, none, none, never, none, backRef)
  ORVANE_FIELDS(Grid, ORVANE_GRID_FIELDS)

 public:
  /// Takes the offset and the two definitions (either may be null); `snapshot` starts empty.
  static Ref<Grid> make(Fields fields);
  /// Fails without a numeric "horizontalOffset", or when a definition present fails.
  static Ref<Grid> decode(const Decoder& decoder);
  /// Writes "horizontalOffset", and each definition when present.
  void encode(Encoder& encoder) const;
};

}  // namespace orvane
