#include "shell/view_models/window_contents.h"
#include <fmt/format.h>
#include "core/display_texts.h"
#include "platform/text/unicode.h"

namespace orvane {
namespace {
/// The value of `sats` in money, as it stands beside an amount.
std::string approximateValue(const BalanceState& state, const LocaleFormat& format,
                             std::int64_t sats) {
  const auto value = fiatText(state, format, static_cast<double>(sats));
  return value ? "≈ " + *value : std::string();
}

BalanceFigure balanceFigure(const BalanceState& state, const LocaleFormat& format,
                            std::int64_t sats) {
  return {.text = amountText(state, format, sats),
          .fiatValue = approximateValue(state, format, sats)};
}

BalanceFigure placeholder(const char* text) { return {.text = text, .isPlaceholder = true}; }

std::vector<Metric> accountMetrics(const BalanceState& state, const LocaleFormat& format) {
  std::vector<Metric> metrics{{.title = "Today", .value = unknownFigure},
                              {.title = "Hashrate 60 min", .value = unknownFigure},
                              {.title = "Shares 24 h", .value = unknownFigure}};
  if (const auto& stats = state.stats) {
    metrics[0].value = amountText(state, format, stats->todayRewardSats);
    metrics[0].fiatValue = approximateValue(state, format, stats->todayRewardSats);
    metrics[1].value = hashRateText(stats->hashRate60m);
    metrics[2].value = format.integer(stats->shares24h);
  }
  return metrics;
}

std::string blockRewardText(const WatchedAddressTransaction& reward, std::int64_t confirmations,
                            const BalanceState& state, const LocaleFormat& format) {
  const auto title = reward.blockHeight
                         ? fmt::format("Block #{}", format.integer(*reward.blockHeight))
                         : "Unconfirmed block";
  const auto maturity =
      confirmations >= coinbaseMaturity
          ? "spendable"
          : fmt::format("{} of {} confirmations", confirmations, coinbaseMaturity);
  return fmt::format("{} · {} · {}", title, amountText(state, format, reward.sats), maturity);
}

std::vector<BlockRewardLine> blockRewardLines(const BalanceState& state,
                                              const LocaleFormat& format) {
  std::vector<BlockRewardLine> lines;
  for (const auto& reward : state.addressSummary->incoming) {
    if (!reward.isCoinbase) { continue; }
    const auto count = confirmations(state.addressSummary->tipHeight, reward.blockHeight);
    lines.push_back({.text = blockRewardText(reward, count, state, format),
                     .isSpendable = count >= coinbaseMaturity});
  }
  return lines;
}

SettingsFieldState fieldState(std::string_view stored, std::string_view draft) {
  return {.canSave = trimmed(draft) != stored, .canRemove = !stored.empty()};
}
}  // namespace

WindowLayout windowLayout(const BalanceState& state) {
  const bool hasToken = !state.token.empty();
  const bool hasAddress = !state.watchedAddress.empty();
  return {.showsPoolCard = hasToken || !hasAddress,
          .showsAddressCard = hasAddress,
          .showsAccountColumn = hasToken,
          .minimumWidth = hasToken ? 1190 : 500,
          .minimumHeight = hasToken && hasAddress ? 990 : 720};
}

PoolCard poolCard(const BalanceState& state, const LocaleFormat& format) {
  const char* const instead = state.expectsAccount() ? "Loading…" : "No API token";
  return {.balance = state.stats ? balanceFigure(state, format, state.stats->balanceSats)
                                 : placeholder(instead),
          .metrics = accountMetrics(state, format),
          .status = {.text = poolStatusLine(state, format),
                     .isWarning = state.accountStatus.has_value()},
          .refresh = {.isVisible = !state.token.empty(), .isBusy = state.isRefreshing}};
}

AddressCard addressCard(const BalanceState& state, const LocaleFormat& format) {
  AddressCard card{.address = state.watchedAddress,
                   .isFromMiner = state.addressIsFromMiner,
                   .balance = placeholder("Loading…"),
                   .status = {.text = addressStatusLine(state, format),
                              .isWarning = state.addressStatus.has_value()},
                   .refresh = {.isBusy = state.isRefreshingAddress}};
  if (!state.addressSummary) { return card; }
  card.balance = balanceFigure(state, format, state.addressSummary->confirmedSats);
  card.blockRewards = blockRewardLines(state, format);
  const auto rewards = static_cast<std::int64_t>(card.blockRewards.size());
  card.metrics = {
      {.title = "Unconfirmed",
       .value = amountText(state, format, state.addressSummary->pendingSats)},
      {.title = "Block rewards", .value = rewards == 0 ? "None" : format.integer(rewards)}};
  return card;
}

SettingsFieldState tokenFieldState(const BalanceState& state, std::string_view draft) {
  return fieldState(state.token, draft);
}

SettingsFieldState addressFieldState(const BalanceState& state, std::string_view draft) {
  return fieldState(state.ownAddress, draft);
}

const char* addressPlaceholder(const BalanceState& state) {
  return state.addressIsFromMiner
             ? "Another Bitcoin address to watch instead"
             : "Bitcoin address to watch, e.g. your solo-mining payout address";
}

AccountLink accountLink(std::string_view webHost) {
  return {.text = fmt::format("Open the account at {}", webHost),
          .url = fmt::format("https://{}/", webHost)};
}
}  // namespace orvane
