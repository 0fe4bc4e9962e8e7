// A hotspot on a snapshot's artboard.
#pragma once

#include <optional>

#include <orvane/coding/Fields.hpp>
#include <orvane/snapshot/Destination.hpp>
#include <orvane/values/Geometry.hpp>
#include <orvane/values/Identifier.hpp>

namespace orvane {

/// A rectangle that leads to a destination. Holds no reference to its snapshot.
class Link {
 public:
#define ORVANE_LINK_FIELDS(F)                                                                \
  F(sourceIdentifier, SourceIdentifier, std::optional<Identifier>, "sourceId", optional,     \
    whenPresent, given, plain)                                                               \
  F(frame, Frame, Rect, "rect", required, always, given, plain)                              \
  F(destination, Destination, Ref<orvane::Destination>, "destination", optional, whenPresent, \
    given, plain)
  ORVANE_FIELDS(Link, ORVANE_LINK_FIELDS)

 public:
  /// Takes the source identifier and destination (either may be empty) and the frame.
  static Ref<Link> make(Fields fields);
  /// Fails without a "rect", or when "sourceId" or "destination" is present but invalid.
  static Ref<Link> decode(const Decoder& decoder);
  /// Writes "rect", and "sourceId" and "destination" when present.
  void encode(Encoder& encoder) const;
};

}  // namespace orvane
