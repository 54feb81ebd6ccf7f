#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>
#include "core/balance_state.h"
#include "platform/text/locale_format.h"

namespace orvane {
/// What the picture of the daily history shows, before it is given a size. Days are counted from
/// 1970-01-01 in UTC, as the pool counts them.

/// A day that the pool lists. What it does not say of it is nothing, not zero.
struct ChartDay {
  std::int64_t day = 0;
  std::optional<double> sats;      ///< the reward, at least 0
  std::optional<double> hashRate;  ///< the average, in hashes per second
  std::size_t row = 0;             ///< in the history
};

/// The days of a span, oldest first, and the ends of the axes: both begin at zero.
struct HistorySeries {
  std::int64_t firstDay = 0;  ///< of the span; the pool need not list it
  std::int64_t lastDay = 0;
  std::vector<ChartDay> days;
  double topSats = 1;
  double topHashRate = 1;
};

/// The days of `history`, which is newest first, in the span that ends with its newest.
[[nodiscard]] HistorySeries historySeries(std::span<const BraiinsHistoryDay> history,
                                          HistorySpan span);

/// A mark on the axis of days, with its words: the day or month, and the year where it begins.
struct DateTick {
  std::int64_t day;
  std::string name;
  std::string year;  ///< empty: that of the tick before it
};

/// Marks at the starts of weeks, months or years, not more than `most` of them.
[[nodiscard]] std::vector<DateTick> dateTicks(const HistorySeries& series, std::size_t most,
                                              const LocaleFormat& format);

/// "15,000 sats" and "100 TH/s": the words at the ends of the axes.
[[nodiscard]] std::string axisSatsText(const LocaleFormat& format, double sats);
[[nodiscard]] std::string axisHashRateText(double hashesPerSecond);

/// "Nov 15, 2026 · 12,346 sats · 9.85 € at today's price · 76.12 TH/s"; without prices no value.
[[nodiscard]] std::string historyDayText(const BraiinsHistoryDay& day, const BalanceState& state,
                                         const LocaleFormat& format);
}  // namespace orvane
