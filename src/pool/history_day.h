#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/decimal/decimal.h"

namespace orvane {

/// One day of the pool's daily history; its identity is `date`.
struct BraiinsHistoryDay {
  std::chrono::sys_seconds date = {};          ///< the pool's own timestamp, not reduced to a day
  std::optional<double> averageHashRate = {};  ///< hashes per second
  std::optional<std::int64_t> shares = {};
  /// The confirmed reward in BTC, as the pool's own decimal text so that nothing is lost.
  std::optional<std::string> rewardBTC = {};

  bool operator==(const BraiinsHistoryDay&) const = default;
};

/// Totals over a list of days.
struct BraiinsHistorySummary {
  explicit BraiinsHistorySummary(std::span<const BraiinsHistoryDay> days);

  std::int64_t dayCount = 0;
  std::optional<double> averageHashRate;  ///< mean of the days that have one
  std::int64_t totalShares = 0;           ///< saturates
  Decimal totalRewardSats;                ///< may carry a fraction of a satoshi
};

}  // namespace orvane
