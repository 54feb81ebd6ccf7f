#include "shell/view_models/history_series.h"
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <fmt/format.h>
#include "core/display_texts.h"
#include "shell/view_models/account_tables.h"

namespace orvane {
namespace {
using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::sys_seconds;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr int monthsPerYear = 12;

/// A moment before 1970, when nothing was mined, or beyond the years of four digits becomes the
/// nearest end of that time.
std::int64_t dayNumber(sys_seconds time) {
  constexpr sys_seconds first = sys_days(year(1970) / 1 / 1);
  constexpr sys_seconds last = sys_days(year(9999) / 12 / 31);
  return std::chrono::floor<days>(std::clamp(time, first, last)).time_since_epoch().count();
}

sys_days dateOf(std::int64_t day) { return sys_days(days(day)); }

std::optional<std::int64_t> daysOf(HistorySpan span) {
  switch (span) {
    case HistorySpan::days30:
      return 30;
    case HistorySpan::days90:
      return 90;
    case HistorySpan::year:
      return 365;
    case HistorySpan::all:
      return std::nullopt;
  }
  return std::nullopt;
}

/// The end of an axis: a figure of few digits that is not much larger than the largest value.
double axisEnd(double largest) {
  if (!(largest > 0) || !std::isfinite(largest)) { return 1; }
  const double power = std::pow(10, std::floor(std::log10(largest)));
  for (const double digits : {1.0, 1.5, 2.0, 3.0, 4.0, 5.0, 6.0, 8.0}) {
    if (largest <= digits * power) { return digits * power; }
  }
  return 10 * power;
}

ChartDay chartDay(const BraiinsHistoryDay& day, std::size_t row) {
  ChartDay shown{
      .day = dayNumber(day.date), .sats = {}, .hashRate = day.averageHashRate, .row = row};
  const auto bitcoins = day.rewardBTC ? Decimal::parse(*day.rewardBTC) : std::nullopt;
  if (bitcoins) { shown.sats = std::max(0.0, (*bitcoins * satsPerBTC).toDouble()); }
  return shown;
}

/// How far the marks are apart: whole weeks or whole months.
struct Step {
  int weeks;
  int months;
};

/// The ends of the steps within the series, in the order of time; gives up beyond `most`.
std::optional<std::vector<sys_days>> stepsOf(const HistorySeries& series, Step step,
                                             std::size_t most) {
  std::vector<sys_days> marks;
  const sys_days last = dateOf(series.lastDay);
  const year_month_day begin(dateOf(series.firstDay));
  const int firstMonth = static_cast<int>(begin.year()) * monthsPerYear +
                         static_cast<int>(static_cast<unsigned>(begin.month())) - 1;
  sys_days mark = dateOf(series.firstDay);
  for (int month = step.months > 0 ? firstMonth - firstMonth % step.months : 0;;) {
    if (step.months > 0) {
      mark = sys_days(year(month / monthsPerYear) /
                      std::chrono::month(static_cast<unsigned>(month % monthsPerYear + 1)) / 1);
      month += step.months;
    }
    if (mark > last) { return marks; }
    if (mark >= dateOf(series.firstDay)) { marks.push_back(mark); }
    if (marks.size() > most) { return std::nullopt; }
    mark += days(7 * step.weeks);
  }
}

DateTick dateTick(sys_days mark, Step step, const LocaleFormat& format, year& lastYear) {
  const year_month_day date(mark);
  DateTick tick{.day = mark.time_since_epoch().count(), .name = {}, .year = {}};
  if (step.months % monthsPerYear != 0 || step.weeks > 0) {
    tick.name =
        format.calendarUtc(step.weeks > 0 ? CalendarPart::dayOfMonth : CalendarPart::month, mark);
  }
  if (date.year() != lastYear) { tick.year = format.calendarUtc(CalendarPart::year, mark); }
  lastYear = date.year();
  return tick;
}
}  // namespace

HistorySeries historySeries(std::span<const BraiinsHistoryDay> history, HistorySpan span) {
  HistorySeries series;
  if (history.empty()) { return series; }
  series.lastDay = dayNumber(history.front().date);
  const auto length = daysOf(span);
  series.firstDay = length ? series.lastDay - *length + 1 : dayNumber(history.back().date);
  double mostSats = 0;
  double mostHashRate = 0;
  for (std::size_t row = 0; row < history.size(); ++row) {
    const ChartDay day = chartDay(history[row], row);
    if (day.day < series.firstDay) { break; }
    mostSats = std::max(mostSats, day.sats.value_or(0));
    mostHashRate = std::max(mostHashRate, day.hashRate.value_or(0));
    series.days.push_back(day);
  }
  std::ranges::reverse(series.days);
  series.topSats = axisEnd(mostSats);
  series.topHashRate = axisEnd(mostHashRate);
  return series;
}

std::vector<DateTick> dateTicks(const HistorySeries& series, std::size_t most,
                                const LocaleFormat& format) {
  std::vector<Step> steps{{1, 0}, {2, 0}, {0, 1}, {0, 2}, {0, 3}, {0, 6}};
  for (int years = 1; years <= 10'000; years *= 10) {
    for (const int each : {1, 2, 5}) {
      steps.push_back({0, each * years * monthsPerYear});
    }
  }
  for (const Step step : steps) {
    const auto marks = stepsOf(series, step, most);
    if (!marks) { continue; }
    std::vector<DateTick> ticks;
    auto lastYear = year::min();
    for (const sys_days mark : *marks) {
      ticks.push_back(dateTick(mark, step, format, lastYear));
    }
    return ticks;
  }
  return {};
}

std::string axisSatsText(const LocaleFormat& format, double sats) {
  return sats < 1 ? fmt::format("{:g} sats", sats)
                  : fmt::format("{} sats", format.integer(saturatedToInt64(std::round(sats))));
}

std::string axisHashRateText(double hashesPerSecond) {
  constexpr std::array<std::pair<double, const char*>, 5> units{
      {{1e15, "PH/s"}, {1e12, "TH/s"}, {1e9, "GH/s"}, {1e6, "MH/s"}, {1e3, "kH/s"}}};
  for (const auto& [factor, word] : units) {
    if (hashesPerSecond >= factor) {
      return fmt::format("{:g} {}", hashesPerSecond / factor, word);
    }
  }
  return fmt::format("{:g} H/s", hashesPerSecond);
}

std::string historyDayText(const BraiinsHistoryDay& day, const BalanceState& state,
                           const LocaleFormat& format) {
  const auto sats = chartDay(day, 0).sats;
  const auto value = sats ? fiatText(state, format, *sats) : std::nullopt;
  std::string text = historyDateText(day, format) + " · " + historyRewardText(day, format);
  if (value) { text += " · " + *value + " at today's price"; }
  return text + " · " + historyHashRateText(day);
}
}  // namespace orvane
