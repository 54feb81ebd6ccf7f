#pragma once

#include <vector>

#include "core/balance_state.h"
#include "platform/text/locale_format.h"
#include "shell/view_models/card_parts.h"
#include "shell/view_models/metric.h"

namespace orvane {

/// What the pool account's card shows.
struct PoolCard {
  BalanceFigure balance;
  std::vector<Metric> metrics;
  StatusLine status;
  RefreshButtonState refresh;
};

[[nodiscard]] PoolCard poolCard(const BalanceState& state, const LocaleFormat& format);

}  // namespace orvane
