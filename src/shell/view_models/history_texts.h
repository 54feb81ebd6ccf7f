#pragma once

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "core/balance_state.h"
#include "platform/decimal/decimal.h"
#include "platform/text/locale_format.h"
#include "pool/history.h"
#include "shell/view_models/card_contents.h"

namespace orvane {

/// A day's cells, in the order of the table's columns.
struct HistoryRow {
  std::string date;
  std::string averageHashRate;
  std::string shares;
  std::string reward;
};

/// The headers of the history table's columns.
inline constexpr std::array<const char*, 4> historyColumnTitles{
    "DATE", "AVG HASHRATE", "ACCEPTED SHARES", "CONFIRMED REWARD"};

/// Costs little, so that a table of any length asks only for the rows in sight.
[[nodiscard]] HistoryRow historyRow(const BraiinsHistoryDay& day, const LocaleFormat& format);

/// "12,346 sats": whole satoshis, halves away from zero; below one satoshi three decimals, so that
/// the smallest rewards do not read as nothing. Amounts beyond a 64-bit integer show its end.
[[nodiscard]] std::string historySatsText(const LocaleFormat& format, const Decimal& amount);

/// Writes the pool's day timestamps as calendar days: medium style of the user's locale, in UTC,
/// so that they read the same in every time zone. The locale's formatters are shared.
class HistoryDateFormatter {
 public:
  explicit HistoryDateFormatter(const LocaleFormat& format) : format_(&format) {}
  [[nodiscard]] std::string operator()(std::chrono::sys_seconds date) const {
    return format_->mediumDateUtc(date);
  }

 private:
  const LocaleFormat* format_;
};

[[nodiscard]] inline HistoryDateFormatter historyDateFormatter(const LocaleFormat& format) {
  return HistoryDateFormatter(format);
}

/// What surrounds the table of the daily history.
struct HistorySectionState {
  std::string subtitle;  ///< "365 days"; empty without history
  bool isEmpty = true;   ///< then the hint and a button that loads stand in the table's place
  bool isLoading = false;
  std::optional<std::string> status;
};

[[nodiscard]] HistorySectionState historySectionState(const BalanceState& state);

/// The totals over `summary`, and those that `extraMetrics` adds, in the order of the row.
[[nodiscard]] std::vector<Metric> historySummaryMetrics(const BraiinsHistorySummary& summary,
                                                        const LocaleFormat& format,
                                                        const std::vector<Metric>& extraMetrics);

/// The value of all rewards in the preferred currency; none without prices.
[[nodiscard]] std::vector<Metric> historyValueMetrics(const BraiinsHistorySummary& summary,
                                                      const BalanceState& state,
                                                      const LocaleFormat& format);

}  // namespace orvane
