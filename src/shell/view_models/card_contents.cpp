#include "shell/view_models/card_contents.h"

#include <fmt/format.h>

#include "core/display_texts.h"

namespace orvane {

namespace {

std::string blockTitle(const WatchedAddressTransaction& reward, const LocaleFormat& format) {
  if (!reward.blockHeight) { return "Unconfirmed block"; }
  return fmt::format("Block #{}", format.integer(*reward.blockHeight));
}

}  // namespace

std::vector<BlockRewardLine> blockRewardLines(const BalanceState& state,
                                              const LocaleFormat& format) {
  std::vector<BlockRewardLine> lines;
  if (!state.addressSummary) { return lines; }
  const auto& summary = *state.addressSummary;
  for (const auto& reward : summary.incoming) {
    if (!reward.isCoinbase) { continue; }
    const auto count = confirmations(summary.tipHeight, reward.blockHeight);
    const bool isSpendable = count >= coinbaseMaturity;
    const auto maturity = isSpendable
                              ? std::string("spendable")
                              : fmt::format("{} of {} confirmations", count, coinbaseMaturity);
    lines.push_back({.text = fmt::format("{} · {} · {}", blockTitle(reward, format),
                                         amountText(state, format, reward.sats), maturity),
                     .isSpendable = isSpendable});
  }
  return lines;
}

namespace {

BalanceFigure poolBalance(const BalanceState& state, const LocaleFormat& format) {
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

StatusLine poolStatus(const BalanceState& state, const LocaleFormat& format) {
  return {.text = poolStatusLine(state, format),
          .kind = state.accountStatus ? StatusLine::Kind::warning : StatusLine::Kind::normal};
}

}  // namespace

PoolCard poolCard(const BalanceState& state, const LocaleFormat& format) {
  return {.balance = poolBalance(state, format),
          .metrics = accountMetrics(state, format),
          .status = poolStatus(state, format),
          .refresh = {.isVisible = !state.token.empty(), .isBusy = state.isRefreshing}};
}

namespace {

BalanceFigure addressBalance(const BalanceState& state, const LocaleFormat& format) {
  if (!state.addressSummary) { return {.text = "Loading…", .isPlaceholder = true}; }
  const auto sats = state.addressSummary->confirmedSats;
  return {.text = amountText(state, format, sats),
          .fiatValue = fiatText(state, format, static_cast<double>(sats))};
}

std::vector<Metric> addressMetrics(const BalanceState& state, const LocaleFormat& format,
                                   std::size_t blockRewards) {
  if (!state.addressSummary) { return {}; }
  return {{.title = "Unconfirmed",
           .value = amountText(state, format, state.addressSummary->pendingSats)},
          {.title = "Block rewards",
           .value = blockRewards == 0 ? "None"
                                      : format.integer(static_cast<std::int64_t>(blockRewards))}};
}

StatusLine addressStatus(const BalanceState& state, const LocaleFormat& format) {
  return {.text = addressStatusLine(state, format),
          .kind = state.addressStatus ? StatusLine::Kind::warning : StatusLine::Kind::normal};
}

}  // namespace

AddressCard addressCard(const BalanceState& state, const LocaleFormat& format) {
  auto blockRewards = blockRewardLines(state, format);
  auto metrics = addressMetrics(state, format, blockRewards.size());
  return {.address = state.watchedAddress,
          .isFromMiner = state.addressIsFromMiner,
          .balance = addressBalance(state, format),
          .metrics = std::move(metrics),
          .blockRewards = std::move(blockRewards),
          .status = addressStatus(state, format),
          .refresh = {.isVisible = true, .isBusy = state.isRefreshingAddress}};
}

}  // namespace orvane
