// A hotspot on a snapshot's artboard.
#pragma once

#include <optional>
#include <string_view>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Geometry.hpp>
#include <orvane/snapshot/Destination.hpp>

namespace orvane {

/// A rectangle that leads to a destination. Holds no reference to its snapshot.
class Link {
 public:
  struct CodingKeys {
    static constexpr std::string_view sourceIdentifier = "sourceId";
    static constexpr std::string_view frame = "rect";
    static constexpr std::string_view destination = "destination";
  };

  Link(Passkey<Link>, std::optional<Identifier> sourceIdentifier, Rect frame,
       Ref<Destination> destination)
      : sourceIdentifier_(std::move(sourceIdentifier)),
        frame_(frame),
        destination_(std::move(destination)) {}

  static Ref<Link> make(std::optional<Identifier> sourceIdentifier, Rect frame,
                        Ref<Destination> destination);
  static Ref<Link> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const std::optional<Identifier>& sourceIdentifier() const { return sourceIdentifier_; }
  void setSourceIdentifier(std::optional<Identifier> value) {
    sourceIdentifier_ = std::move(value);
  }
  const Rect& frame() const { return frame_; }
  void setFrame(Rect value) { frame_ = value; }
  const Ref<Destination>& destination() const { return destination_; }
  void setDestination(Ref<Destination> value) { destination_ = std::move(value); }

 private:
  std::optional<Identifier> sourceIdentifier_;
  Rect frame_;
  Ref<Destination> destination_;
};

}  // namespace orvane
