#pragma once

#include <string>
#include <vector>

#include "core/balance_state.h"
#include "platform/text/locale_format.h"
#include "shell/view_models/block_reward_line.h"
#include "shell/view_models/card_parts.h"
#include "shell/view_models/metric.h"

namespace orvane {

/// What the watched address's card shows.
struct AddressCard {
  std::string address;
  bool isFromMiner = false;
  BalanceFigure balance;
  std::vector<Metric> metrics;                ///< empty until the address has been read
  std::vector<BlockRewardLine> blockRewards;  ///< in the explorer's order
  StatusLine status;
  RefreshButtonState refresh;
};

[[nodiscard]] AddressCard addressCard(const BalanceState& state, const LocaleFormat& format);

}  // namespace orvane
