#include <orvane/values/Date.hpp>

#include <cstdio>

#include <orvane/internal/DateText.hpp>

namespace orvane {

Date now() {
  return std::chrono::time_point_cast<std::chrono::microseconds>(std::chrono::system_clock::now());
}

namespace detail {

std::string formatUtc(Date date, int fractionDigits) {
  using namespace std::chrono;
  auto us = date.time_since_epoch();
  auto days = floor<std::chrono::days>(us);
  year_month_day ymd{sys_days{days}};
  auto rest = us - days;
  auto h = duration_cast<hours>(rest);
  auto m = duration_cast<minutes>(rest - h);
  auto s = duration_cast<seconds>(rest - h - m);
  auto micros = (rest - h - m - s).count();
  char buf[80];
  int n = std::snprintf(buf, sizeof buf, "%04d-%02u-%02uT%02d:%02d:%02d", int(ymd.year()),
                        unsigned(ymd.month()), unsigned(ymd.day()), int(h.count()),
                        int(m.count()), int(s.count()));
  if (fractionDigits == 3) {
    n += std::snprintf(buf + n, sizeof buf - n, ".%03lld", (long long)(micros / 1000));
  } else if (fractionDigits == 6) {
    n += std::snprintf(buf + n, sizeof buf - n, ".%06lld", (long long)micros);
  }
  buf[n++] = 'Z';
  return std::string(buf, static_cast<std::size_t>(n));
}

}  // namespace detail

std::string formatDateMillis(Date date) { return detail::formatUtc(date, 3); }

}  // namespace orvane
