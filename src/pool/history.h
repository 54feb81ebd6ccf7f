#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>
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

/// Joins the pool's two history documents into days, newest first; days on which nothing was
/// earned and nothing was mined are left out. Rewards and hash rates belong to the same day only
/// when their timestamps are equal; a later entry replaces an earlier one of the same timestamp.
/// Nothing when the rewards body does not decode. A hash rate body that is missing or does not
/// decode is no failure: the days then carry rewards only.
[[nodiscard]] std::optional<std::vector<BraiinsHistoryDay>> buildHistoryDays(
    std::string_view rewardsBody, std::optional<std::string_view> dailyHashrateBody);

/// The persisted form of a history, which the store keeps in the user's settings: a JSON array of
/// days, with dates as seconds since 2001-01-01T00:00:00 UTC.

/// Nothing when a day cannot be written: a hash rate that is not finite, a reward text that is not
/// UTF-8. Dates in the first 31 years of the 64-bit range are moved to their end.
[[nodiscard]] std::optional<std::string> encodeHistory(std::span<const BraiinsHistoryDay> days);

/// Nothing when the bytes are not such a list as a whole. In stored order. A date may be any
/// number: a fraction of a second is dropped towards the past, so the calendar day stays, and a
/// moment beyond the 64-bit range becomes its nearest end.
[[nodiscard]] std::optional<std::vector<BraiinsHistoryDay>> decodeHistory(std::string_view bytes);
}  // namespace orvane
