#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>
#include "core/balance_state.h"
#include "platform/decimal/decimal.h"
#include "platform/text/locale_format.h"
#include "shell/view_models/window_contents.h"

namespace orvane {
/// What the two tables of the account show, and the words around them. Each text is made for
/// itself, so that a table of any length costs what is in sight.

/// What each state of a worker is called, in the order of `BraiinsWorkerStatus::State`.
inline constexpr std::array stateWords{"OK", "Low", "Off", "Disabled", unknownFigure};

[[nodiscard]] std::string stateWord(BraiinsWorkerStatus::State state);
/// The short name, and the whole one.
[[nodiscard]] std::string workerName(const BraiinsWorkerStatus& worker);
[[nodiscard]] std::string workerFullName(const BraiinsWorkerStatus& worker);
/// "2 of 3 OK", or "3 OK" when all are; empty without workers.
[[nodiscard]] std::string workersSubtitle(std::span<const BraiinsWorkerStatus> workers);

/// One day of the history. Its date is in UTC, the pool's own days, so that a day reads the same in
/// every time zone.
[[nodiscard]] std::string historyDateText(const BraiinsHistoryDay& day, const LocaleFormat& format);
[[nodiscard]] std::string historyHashRateText(const BraiinsHistoryDay& day);
[[nodiscard]] std::string historySharesText(const BraiinsHistoryDay& day,
                                            const LocaleFormat& format);
[[nodiscard]] std::string historyRewardText(const BraiinsHistoryDay& day,
                                            const LocaleFormat& format);
/// "365 days"; empty without history.
[[nodiscard]] std::string historySubtitle(std::span<const BraiinsHistoryDay> days);
/// "12,346 sats": whole satoshis, halves away from zero; below one satoshi three decimals, so that
/// the smallest rewards do not read as nothing. Amounts beyond a 64-bit integer show its end.
[[nodiscard]] std::string historySatsText(const LocaleFormat& format, const Decimal& amount);

/// The totals over `summary`, and those that `extraMetrics` adds, in the order of the row.
[[nodiscard]] std::vector<Metric> historySummaryMetrics(const BraiinsHistorySummary& summary,
                                                        const LocaleFormat& format,
                                                        const std::vector<Metric>& extraMetrics);
/// Totals as wide as those of most accounts after years; a row of totals keeps room for them.
[[nodiscard]] std::vector<Metric> usualHistoryMetrics(const LocaleFormat& format);
/// The value of all rewards in the preferred currency; none without prices.
[[nodiscard]] std::vector<Metric> historyValueMetrics(const BraiinsHistorySummary& summary,
                                                      const BalanceState& state,
                                                      const LocaleFormat& format);
}  // namespace orvane
