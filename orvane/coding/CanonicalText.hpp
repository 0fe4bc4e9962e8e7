// String comparison under Unicode canonical equivalence, where the model compares text.
#pragma once

#include <string_view>

namespace orvane {

/// True when the two UTF-8 strings are canonically equivalent (equal in normalization form C).
/// ASCII text compares as bytes; text that is not valid UTF-8 compares as bytes too.
bool canonicallyEquivalent(std::string_view a, std::string_view b);

}  // namespace orvane
