// Stops for programming errors.
#pragma once

#include <string_view>

namespace orvane {

/// Ends the process after writing `file:line: Fatal error: message` to standard error. Used for
/// programming errors that the model treats as fatal (abstract paths, missing owners).
[[noreturn]] void fatalError(std::string_view message, std::string_view file, int line);

}  // namespace orvane
