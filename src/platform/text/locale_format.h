#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include "platform/async/executor.h"

namespace orvane {
/// Which locales and which time zone the user's texts follow. Names are those of the environment
/// ("de_DE.UTF-8@euro"); "C", "POSIX" and the empty name count as en_US. The time zone is an Olson
/// name; empty: TZ's, or else the system's own, which may become another one at any time.
struct LocaleNames {
  std::string numbers;
  std::string dates;
  std::string timeZone = {};
  std::string systemZoneLink = "/etc/localtime";  ///< leads to the file of the system's zone

  /// Reads LC_ALL, then LC_NUMERIC or LC_TIME, then LANG. An empty variable counts as not set.
  [[nodiscard]] static LocaleNames fromEnvironment();
};

/// A part of a date: "Nov 15", "Nov" or "2026".
enum class CalendarPart { dayOfMonth, month, year };

/// Numbers, dates and times in the user's own style. One is made at start and shared by all
/// texts; its formatters are expensive to make and cheap to use.
class LocaleFormat {
 public:
  explicit LocaleFormat(const LocaleNames& names);
  ~LocaleFormat();

  /// With the locale's grouping: 12,345 or 12.345. A negative number has the locale's minus sign.
  [[nodiscard]] std::string integer(std::int64_t value) const;
  /// With the locale's grouping and exactly `digits` fraction digits (0 to 17), to nearest and, as
  /// formatters do by default, halves to even. Infinities and NaN have the locale's own signs.
  [[nodiscard]] std::string fixed(double value, int digits) const;
  /// 2:05 PM or 14:05, in the user's time zone.
  [[nodiscard]] std::string shortTime(WallTime time) const;
  /// Nov 15, 2026, 2:05 PM: medium date and short time, in the user's time zone.
  [[nodiscard]] std::string mediumDateShortTime(std::chrono::sys_seconds time) const;
  /// Nov 15, 2026: the Gregorian calendar day in UTC.
  [[nodiscard]] std::string mediumDateUtc(std::chrono::sys_seconds time) const;
  /// A part of the Gregorian calendar day in UTC, in its short form.
  [[nodiscard]] std::string calendarUtc(CalendarPart part, std::chrono::sys_seconds time) const;

 private:
  struct Formatters;
  std::unique_ptr<Formatters> formatters_;
};
}  // namespace orvane
