#include <orvane/internal/DateText.hpp>

#include <cmath>
#include <cstdio>

namespace orvane {

using namespace std::chrono;

std::optional<std::string> formatIso8601(Date date) {
  auto micros = (date.time_since_epoch() % std::chrono::seconds(1)).count();
  if (micros < 0) micros += 1'000'000;
  const int digits = micros == 0 ? 0 : micros % 1000 == 0 ? 3 : 6;
  // RFC 3339 has four-digit years. Text read with an offset may name an instant just outside
  // them in UTC ("0000-01-01T00:00:00+01:00"): written with an offset again, it keeps its place.
  constexpr Date first{sys_days{year{0} / 1 / 1}.time_since_epoch()};
  constexpr Date end{sys_days{year{10000} / 1 / 1}.time_since_epoch()};
  if (date >= first && date < end) return detail::formatUtc(date, digits);
  const bool early = date < first;
  const minutes shift = early ? ceil<minutes>(first - date) : ceil<minutes>(date - end + 1us);
  if (shift > 23h + 59min) return std::nullopt;
  std::string text = detail::formatUtc(early ? date + shift : date - shift, digits);
  char offset[8];
  std::snprintf(offset, sizeof offset, "%c%02d:%02d", early ? '+' : '-', int(shift.count() / 60),
                int(shift.count() % 60));
  text.pop_back();  // the "Z"
  return text + offset;
}

namespace {

bool digits(std::string_view t, std::size_t pos, std::size_t count, int& out) {
  if (pos + count > t.size()) return false;
  int v = 0;
  for (std::size_t i = 0; i < count; ++i) {
    char c = t[pos + i];
    if (c < '0' || c > '9') return false;
    v = v * 10 + (c - '0');
  }
  out = v;
  return true;
}

}  // namespace

std::optional<Date> parseIso8601(std::string_view t) {
  int Y, M, D, h, m, s;
  if (!digits(t, 0, 4, Y) || t.size() < 19 || t[4] != '-' || !digits(t, 5, 2, M) || t[7] != '-' ||
      !digits(t, 8, 2, D) || (t[10] != 'T' && t[10] != 't') || !digits(t, 11, 2, h) ||
      t[13] != ':' || !digits(t, 14, 2, m) || t[16] != ':' || !digits(t, 17, 2, s)) {
    return std::nullopt;
  }
  year_month_day ymd{year{Y}, month{unsigned(M)}, day{unsigned(D)}};
  if (!ymd.ok() || h > 23 || m > 59 || s > 60) return std::nullopt;
  std::size_t pos = 19;
  std::int64_t micros = 0;
  if (pos < t.size() && t[pos] == '.') {
    ++pos;
    std::size_t start = pos;
    std::int64_t scale = 100000;
    while (pos < t.size() && t[pos] >= '0' && t[pos] <= '9') {
      micros += (t[pos] - '0') * scale;  // digits past microseconds are dropped
      scale /= 10;
      ++pos;
    }
    if (pos == start) return std::nullopt;
  }
  if (pos >= t.size()) return std::nullopt;
  int offsetMinutes = 0;
  if (t[pos] == 'Z' || t[pos] == 'z') {
    ++pos;
  } else if (t[pos] == '+' || t[pos] == '-') {
    int oh, om;
    if (!digits(t, pos + 1, 2, oh) || pos + 3 >= t.size() || t[pos + 3] != ':' ||
        !digits(t, pos + 4, 2, om) || oh > 23 || om > 59) {
      return std::nullopt;
    }
    offsetMinutes = (oh * 60 + om) * (t[pos] == '-' ? -1 : 1);
    pos += 6;
  } else {
    return std::nullopt;
  }
  if (pos != t.size()) return std::nullopt;
  auto tp = sys_days{ymd} + hours{h} + minutes{m} + seconds{s} - minutes{offsetMinutes};
  return Date(duration_cast<microseconds>(tp.time_since_epoch()) + microseconds{micros});
}

std::optional<Date> dateFromSeconds(double secondsValue) {
  double micros = std::round(secondsValue * 1e6);
  // Stay well inside what 64-bit microseconds and the calendar functions handle.
  if (!(std::fabs(micros) < 9.0e18)) return std::nullopt;
  return Date(microseconds{static_cast<std::int64_t>(micros)});
}

}  // namespace orvane
