#pragma once

#include <expected>
#include <optional>
#include <string_view>
#include <vector>

#include "pool/history_day.h"
#include "pool/pool_error.h"

namespace orvane {

/// Joins the pool's two history documents into days, newest first; days on which nothing was
/// earned and nothing was mined are left out. Rewards and hash rates belong to the same day only
/// when their timestamps are equal; a later entry replaces an earlier one of the same timestamp.
/// Fails with `decoding` when the rewards body does not decode. A hash rate body that is missing or
/// does not decode is no failure: the days then carry rewards only.
[[nodiscard]] std::expected<std::vector<BraiinsHistoryDay>, PoolError> buildHistoryDays(
    std::string_view rewardsBody, std::optional<std::string_view> dailyHashrateBody);

}  // namespace orvane
