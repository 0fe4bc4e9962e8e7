// What `measure` prints, as text or JSON: shared by the tool and the Python module, so that
// both say the same.
#pragma once

#include <string>

#include <orvane/handoff/Measure.hpp>
#include <orvane/snapshot/Layer.hpp>
#include <orvane/snapshot/Snapshot.hpp>

namespace orvane::tool {

/// Lengths as --density asks for them; in JSON, one that is not a number is null.
struct Lengths {
  double scale = 1;
  std::string operator()(double value) const;
  std::string json(double value) const;
};

/// Two layers' measurement: one line of text, or one JSON object and a newline.
std::string measurementText(const handoff::Measurement& m, const Layer& a, const Layer& b,
                            bool asJson, const Lengths& n);

/// One layer: how far its edges lie from its group's and from the artboard's.
std::string placementText(const Layer& layer, const Snapshot& snapshot, bool asJson,
                          const Lengths& n);

}  // namespace orvane::tool
