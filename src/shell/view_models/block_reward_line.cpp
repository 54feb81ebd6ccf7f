#include "shell/view_models/block_reward_line.h"

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

}  // namespace orvane
