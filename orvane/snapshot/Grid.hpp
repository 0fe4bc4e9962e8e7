// The layout grid of a snapshot's artboard.
#pragma once

#include <cstdint>
#include <string_view>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/Ref.hpp>

namespace orvane {

class Snapshot;

/// An offset with optional column and row definitions. The snapshot that holds it wires itself
/// in; the grid never keeps it alive.
class Grid {
 public:
  /// The column definition.
  class Vertical {
   public:
    struct CodingKeys {
      static constexpr std::string_view columnWidth = "columnWidth";
      static constexpr std::string_view columnCount = "numberOfCols";
      static constexpr std::string_view gutterWidth = "gutterWidth";
      static constexpr std::string_view hasOutsideGutters = "guttersOnOutside";
    };

    Vertical(Passkey<Vertical>, double columnWidth, std::int64_t columnCount, double gutterWidth,
             bool hasOutsideGutters)
        : columnWidth_(columnWidth),
          columnCount_(columnCount),
          gutterWidth_(gutterWidth),
          hasOutsideGutters_(hasOutsideGutters) {}

    static Ref<Vertical> make(double columnWidth, std::int64_t columnCount, double gutterWidth,
                              bool hasOutsideGutters);
    static Ref<Vertical> decode(const Decoder& decoder);
    void encode(Encoder& encoder) const;
    void visitFields(FieldVisitor& v) const;

    double columnWidth() const { return columnWidth_; }
    void setColumnWidth(double value) { columnWidth_ = value; }
    std::int64_t columnCount() const { return columnCount_; }
    void setColumnCount(std::int64_t value) { columnCount_ = value; }
    double gutterWidth() const { return gutterWidth_; }
    void setGutterWidth(double value) { gutterWidth_ = value; }
    bool hasOutsideGutters() const { return hasOutsideGutters_; }
    void setHasOutsideGutters(bool value) { hasOutsideGutters_ = value; }

   private:
    double columnWidth_;
    std::int64_t columnCount_;
    double gutterWidth_;
    bool hasOutsideGutters_;
  };

  /// The row definition.
  class Horizontal {
   public:
    struct CodingKeys {
      static constexpr std::string_view rowHeight = "rowHeight";
      static constexpr std::string_view gutterHeight = "gutterHeight";
    };

    Horizontal(Passkey<Horizontal>, double rowHeight, double gutterHeight)
        : rowHeight_(rowHeight), gutterHeight_(gutterHeight) {}

    static Ref<Horizontal> make(double rowHeight, double gutterHeight);
    static Ref<Horizontal> decode(const Decoder& decoder);
    void encode(Encoder& encoder) const;
    void visitFields(FieldVisitor& v) const;

    double rowHeight() const { return rowHeight_; }
    void setRowHeight(double value) { rowHeight_ = value; }
    double gutterHeight() const { return gutterHeight_; }
    void setGutterHeight(double value) { gutterHeight_ = value; }

   private:
    double rowHeight_;
    double gutterHeight_;
  };

  struct CodingKeys {
    static constexpr std::string_view horizontalOffset = "horizontalOffset";
    static constexpr std::string_view vertical = "vertical";
    static constexpr std::string_view horizontal = "horizontal";
  };

  Grid(Passkey<Grid>, double horizontalOffset, Ref<Vertical> vertical, Ref<Horizontal> horizontal)
      : horizontalOffset_(horizontalOffset),
        vertical_(std::move(vertical)),
        horizontal_(std::move(horizontal)) {}

  static Ref<Grid> make(double horizontalOffset, Ref<Vertical> vertical,
                        Ref<Horizontal> horizontal);
  static Ref<Grid> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  double horizontalOffset() const { return horizontalOffset_; }
  void setHorizontalOffset(double value) { horizontalOffset_ = value; }
  const Ref<Vertical>& vertical() const { return vertical_; }
  void setVertical(Ref<Vertical> value) { vertical_ = std::move(value); }
  const Ref<Horizontal>& horizontal() const { return horizontal_; }
  void setHorizontal(Ref<Horizontal> value) { horizontal_ = std::move(value); }
  Ref<Snapshot> snapshot() const { return snapshot_.lock(); }
  void setSnapshot(const Ref<Snapshot>& value) { snapshot_ = value; }

 private:
  double horizontalOffset_;
  Ref<Vertical> vertical_;
  Ref<Horizontal> horizontal_;
  WeakRef<Snapshot> snapshot_;
};

}  // namespace orvane
