#pragma once

namespace orvane {

/// How the JSON coder writes and reads dates.
enum class DateStrategy {
  iso8601,       ///< RFC 3339 text; fractional seconds and offsets accepted, UTC "Z" written
  seconds,       ///< a number of seconds since 1970-01-01T00:00:00Z
  milliseconds,  ///< a number of milliseconds since 1970-01-01T00:00:00Z
  deferred,      ///< a number of seconds since 2001-01-01T00:00:00Z
};

}  // namespace orvane
