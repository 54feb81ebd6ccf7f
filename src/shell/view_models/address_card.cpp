#include "shell/view_models/address_card.h"

#include "core/display_texts.h"

namespace orvane {
namespace {

BalanceFigure balanceFigure(const BalanceState& state, const LocaleFormat& format) {
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

StatusLine statusLine(const BalanceState& state, const LocaleFormat& format) {
  return {.text = addressStatusLine(state, format),
          .kind = state.addressStatus ? StatusLine::Kind::warning : StatusLine::Kind::normal};
}

}  // namespace

AddressCard addressCard(const BalanceState& state, const LocaleFormat& format) {
  auto blockRewards = blockRewardLines(state, format);
  auto metrics = addressMetrics(state, format, blockRewards.size());
  return {.address = state.watchedAddress,
          .isFromMiner = state.addressIsFromMiner,
          .balance = balanceFigure(state, format),
          .metrics = std::move(metrics),
          .blockRewards = std::move(blockRewards),
          .status = statusLine(state, format),
          .refresh = {.isVisible = true, .isBusy = state.isRefreshingAddress}};
}

}  // namespace orvane
