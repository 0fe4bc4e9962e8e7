// Stops for programming errors.
#pragma once

#include <string_view>

namespace orvane {

/// Ends the process after writing `file:line: Fatal error: message` to standard error. Used for
/// programming errors: an abstract path asked of a plain version collection, a screen or
/// component without its owner, a tree that contains itself.
///
/// The file and line are not always ours. The stops of version collections, screens and
/// components give the file and line that every other client of the service reports for the
/// same stop ("Sources/Screen", 32), so that crash reports read alike whichever client wrote
/// them; stops of our own (the cycle checks) give our source file and the line of the check.
[[noreturn]] void fatalError(std::string_view message, std::string_view file, int line);

}  // namespace orvane
