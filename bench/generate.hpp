// Deterministic, seeded documents shaped like the service's: snapshots with layer trees.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace orvane::bench {

/// A JSON array of snapshot documents, about `targetBytes` long, the same for the same seed.
/// Each snapshot carries a layer tree of about 120 layers (nested groups, text with ranged
/// styles, shapes with fills, borders and shadows), assets with contents, links and a grid.
std::string generateSnapshots(std::size_t targetBytes, std::uint64_t seed = 42);

/// One snapshot document whose layer tree holds about `layerCount` layers.
std::string generateSnapshot(int layerCount, std::uint64_t seed = 42);

/// One project document, about `targetBytes` long: screens with two to four versions each (every
/// version carrying a snapshot as above) and dots with comments, sections naming the screens, a
/// component tree three levels deep, colors, text styles, members and a chat integration.
std::string generateProject(std::size_t targetBytes, std::uint64_t seed = 42);

}  // namespace orvane::bench
