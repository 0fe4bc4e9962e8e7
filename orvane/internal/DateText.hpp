// Date text of the JSON coder (internal).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/values/Date.hpp>

namespace orvane {

/// Seconds from 1970-01-01 to 2001-01-01, the reference date of the deferred strategy.
inline constexpr double kReferenceDateOffset = 978307200.0;

namespace detail {
/// RFC 3339 in UTC with "Z" and 0, 3 or 6 fractional digits (truncated). Shared by the coder and
/// the debug views; defined beside `Date`.
std::string formatUtc(Date date, int fractionDigits);
}  // namespace detail

/// RFC 3339 in UTC with "Z"; fractional seconds only when they are not zero. A date just
/// outside the years 0000 to 9999 in UTC has an offset that brings it within them; none when
/// no offset of RFC 3339 does.
std::optional<std::string> formatIso8601(Date date);

/// RFC 3339: a full date, "T", a full time with optional fraction, and "Z" or an offset.
std::optional<Date> parseIso8601(std::string_view text);

/// A number of seconds since 1970 as a Date, when it is within range.
std::optional<Date> dateFromSeconds(double seconds);

}  // namespace orvane
