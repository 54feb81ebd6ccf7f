#include "shell/view_models/pool_card.h"

#include "core/display_texts.h"

namespace orvane {
namespace {

BalanceFigure balanceFigure(const BalanceState& state, const LocaleFormat& format) {
  if (!state.stats) {
    return {.text = state.token.empty() ? "No API token" : "Loading…", .isPlaceholder = true};
  }
  const auto sats = state.stats->balanceSats;
  return {.text = amountText(state, format, sats),
          .fiatValue = fiatText(state, format, static_cast<double>(sats))};
}

std::vector<Metric> accountMetrics(const BalanceState& state, const LocaleFormat& format) {
  if (!state.stats) {
    return {{.title = "Today", .value = unknownFigure},
            {.title = "Hashrate 60 min", .value = unknownFigure},
            {.title = "Shares 24 h", .value = unknownFigure}};
  }
  const auto& stats = *state.stats;
  return {{.title = "Today",
           .value = amountText(state, format, stats.todayRewardSats),
           .fiatValue = fiatText(state, format, static_cast<double>(stats.todayRewardSats))},
          {.title = "Hashrate 60 min", .value = hashRateText(stats.hashRate60m)},
          {.title = "Shares 24 h", .value = format.integer(stats.shares24h)}};
}

StatusLine statusLine(const BalanceState& state, const LocaleFormat& format) {
  return {.text = poolStatusLine(state, format),
          .kind = state.accountStatus ? StatusLine::Kind::warning : StatusLine::Kind::normal};
}

}  // namespace

PoolCard poolCard(const BalanceState& state, const LocaleFormat& format) {
  return {.balance = balanceFigure(state, format),
          .metrics = accountMetrics(state, format),
          .status = statusLine(state, format),
          .refresh = {.isVisible = !state.token.empty(), .isBusy = state.isRefreshing}};
}

}  // namespace orvane
