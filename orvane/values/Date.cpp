#include <orvane/values/Date.hpp>

#include <cstdio>

namespace orvane {

Date now() {
  return std::chrono::time_point_cast<std::chrono::microseconds>(std::chrono::system_clock::now());
}

std::string formatDateMillis(Date date) {
  using namespace std::chrono;
  auto ms = floor<milliseconds>(date.time_since_epoch());
  auto days = floor<std::chrono::days>(ms);
  year_month_day ymd{sys_days{days}};
  auto rest = ms - days;
  auto h = duration_cast<hours>(rest);
  auto m = duration_cast<minutes>(rest - h);
  auto s = duration_cast<seconds>(rest - h - m);
  auto f = rest - h - m - s;
  char buf[64];
  std::snprintf(buf, sizeof buf, "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ", int(ymd.year()),
                unsigned(ymd.month()), unsigned(ymd.day()), int(h.count()), int(m.count()),
                int(s.count()), int(f.count()));
  return buf;
}

}  // namespace orvane
