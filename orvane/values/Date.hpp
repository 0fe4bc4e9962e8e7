// Points in time as the records hold them.
#pragma once

#include <chrono>
#include <string>

namespace orvane {

/// A point in time, microseconds since 1970-01-01T00:00:00Z. How it is written belongs to the
/// coder (its date strategy); the records never format or parse dates themselves.
using Date = std::chrono::time_point<std::chrono::system_clock, std::chrono::microseconds>;

/// The current time, as `make` takes it for creation dates.
Date now();

/// ISO 8601 in UTC with exactly three fractional digits, as debug views show dates.
std::string formatDateMillis(Date date);

}  // namespace orvane
