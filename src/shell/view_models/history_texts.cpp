#include "shell/view_models/history_texts.h"

#include <cmath>
#include <limits>

#include <fmt/format.h>

#include "core/display_texts.h"
#include "shell/view_models/card_contents.h"

namespace orvane {

namespace {

constexpr std::int64_t satsPerBitcoin = 100'000'000;

/// Halves away from zero.
std::int64_t roundedSaturating(double value) {
  constexpr double firstTooLarge = 0x1p63;
  return value < firstTooLarge ? std::llround(value) : std::numeric_limits<std::int64_t>::max();
}

std::string rewardText(const LocaleFormat& format, const std::optional<std::string>& rewardBTC) {
  const auto bitcoins = rewardBTC ? Decimal::parse(*rewardBTC) : std::nullopt;
  return bitcoins ? historySatsText(format, *bitcoins * Decimal(satsPerBitcoin)) : unknownFigure;
}

}  // namespace

std::string historySatsText(const LocaleFormat& format, const Decimal& amount) {
  const double sats = amount.toDouble();
  if (sats == 0) { return "0 sats"; }
  if (sats < 1) { return fmt::format("{:.3f} sats", sats); }
  return fmt::format("{} sats", format.integer(roundedSaturating(sats)));
}

HistoryRow historyRow(const BraiinsHistoryDay& day, const LocaleFormat& format) {
  return {
      .date = historyDateFormatter(format)(day.date),
      .averageHashRate = day.averageHashRate ? hashRateText(*day.averageHashRate) : unknownFigure,
      .shares = day.shares ? format.integer(*day.shares) : unknownFigure,
      .reward = rewardText(format, day.rewardBTC)};
}

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
