#include "shell/view_models/account_tables.h"
#include <algorithm>
#include <cmath>
#include <utility>
#include <fmt/format.h>
#include "core/display_texts.h"
#include "platform/text/unicode.h"

namespace orvane {
namespace {
std::string dayCountText(std::int64_t days) {
  return days == 1 ? "1 day" : fmt::format("{} days", days);
}

std::string averageText(const std::optional<double>& hashRate) {
  return hashRate ? hashRateText(*hashRate) : unknownFigure;
}
}  // namespace

std::string stateWord(BraiinsWorkerStatus::State state) {
  return stateWords.at(static_cast<std::size_t>(state));
}

std::string workerName(const BraiinsWorkerStatus& worker) {
  return controlsMarked(shortWorkerName(worker.fullName));
}

std::string workerFullName(const BraiinsWorkerStatus& worker) {
  return controlsMarked(worker.fullName);
}

std::string workersSubtitle(std::span<const BraiinsWorkerStatus> workers) {
  if (workers.empty()) { return {}; }
  const auto okCount =
      std::ranges::count(workers, BraiinsWorkerStatus::State::ok, &BraiinsWorkerStatus::state);
  if (std::cmp_equal(okCount, workers.size())) { return fmt::format("{} OK", okCount); }
  return fmt::format("{} of {} OK", okCount, workers.size());
}

std::string historyDateText(const BraiinsHistoryDay& day, const LocaleFormat& format) {
  return format.mediumDateUtc(day.date);
}

std::string historyHashRateText(const BraiinsHistoryDay& day) {
  return averageText(day.averageHashRate);
}

std::string historySharesText(const BraiinsHistoryDay& day, const LocaleFormat& format) {
  return day.shares ? format.integer(*day.shares) : unknownFigure;
}

std::string historyRewardText(const BraiinsHistoryDay& day, const LocaleFormat& format) {
  const auto bitcoins = day.rewardBTC ? Decimal::parse(*day.rewardBTC) : std::nullopt;
  return bitcoins ? historySatsText(format, *bitcoins * satsPerBTC) : unknownFigure;
}

std::string historySubtitle(std::span<const BraiinsHistoryDay> days) {
  return days.empty() ? std::string() : dayCountText(std::ssize(days));
}

std::string historySatsText(const LocaleFormat& format, const Decimal& amount) {
  const double sats = amount.toDouble();
  if (sats == 0) { return "0 sats"; }
  if (sats < 1) { return fmt::format("{:.3f} sats", sats); }
  return fmt::format("{} sats", format.integer(saturatedToInt64(std::round(sats))));
}

std::vector<Metric> historySummaryMetrics(const BraiinsHistorySummary& summary,
                                          const LocaleFormat& format,
                                          const std::vector<Metric>& extraMetrics) {
  std::vector<Metric> metrics{
      {.title = "TOTAL", .value = dayCountText(summary.dayCount)},
      {.title = "AVG HASHRATE", .value = averageText(summary.averageHashRate)},
      {.title = "ACCEPTED SHARES", .value = format.integer(summary.totalShares)},
      {.title = "CONFIRMED REWARD", .value = historySatsText(format, summary.totalRewardSats)}};
  metrics.insert(metrics.end(), extraMetrics.begin(), extraMetrics.end());
  return metrics;
}

std::vector<Metric> usualHistoryMetrics(const LocaleFormat& format) {
  BraiinsHistorySummary usual({});
  usual.dayCount = 9'999;
  usual.averageHashRate = 1e14;
  usual.totalShares = 99'999'999'999'999;
  usual.totalRewardSats = Decimal(99'999'999);
  return historySummaryMetrics(usual, format, {{.title = "VALUE · EUR", .value = "99,999.99 €"}});
}

std::vector<Metric> historyValueMetrics(const BraiinsHistorySummary& summary,
                                        const BalanceState& state, const LocaleFormat& format) {
  const auto value = fiatText(state, format, summary.totalRewardSats.toDouble());
  if (!value) { return {}; }
  return {
      {.title = fmt::format("VALUE · {}", rawValue(state.preferredFiatCurrency)), .value = *value}};
}
}  // namespace orvane
