#include "shell/view_models/history_section.h"

#include <fmt/format.h>

#include "core/display_texts.h"
#include "shell/view_models/history_texts.h"

namespace orvane {
namespace {

std::string dayCountText(std::int64_t days) {
  return days == 1 ? "1 day" : fmt::format("{} days", days);
}

}  // namespace

HistorySectionState historySectionState(const BalanceState& state) {
  const bool isEmpty = state.history.empty();
  const auto days = static_cast<std::int64_t>(state.history.size());
  return {.subtitle = isEmpty ? std::string() : dayCountText(days),
          .isEmpty = isEmpty,
          .isLoading = state.isLoadingHistory,
          .status = state.historyStatus};
}

std::vector<Metric> historySummaryMetrics(const BraiinsHistorySummary& summary,
                                          const LocaleFormat& format,
                                          const std::vector<Metric>& extraMetrics) {
  std::vector<Metric> metrics{
      {.title = "TOTAL", .value = dayCountText(summary.dayCount)},
      {.title = "AVG HASHRATE",
       .value = summary.averageHashRate ? hashRateText(*summary.averageHashRate) : unknownFigure},
      {.title = "ACCEPTED SHARES", .value = format.integer(summary.totalShares)},
      {.title = "CONFIRMED REWARD", .value = historySatsText(format, summary.totalRewardSats)}};
  metrics.insert(metrics.end(), extraMetrics.begin(), extraMetrics.end());
  return metrics;
}

std::vector<Metric> historyValueMetrics(const BraiinsHistorySummary& summary,
                                        const BalanceState& state, const LocaleFormat& format) {
  const auto value = fiatText(state, format, summary.totalRewardSats.toDouble());
  if (!value) { return {}; }
  return {
      {.title = fmt::format("VALUE · {}", rawValue(state.preferredFiatCurrency)), .value = *value}};
}

}  // namespace orvane
