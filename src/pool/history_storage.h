#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pool/history_day.h"

namespace orvane {

/// The persisted form of a history: a JSON array of days, with dates as seconds since
/// 2001-01-01T00:00:00 UTC.
[[nodiscard]] std::optional<std::string> encodeHistory(std::span<const BraiinsHistoryDay> days);

/// Nothing when the bytes are not such a list as a whole. In stored order.
[[nodiscard]] std::optional<std::vector<BraiinsHistoryDay>> decodeHistory(std::string_view bytes);

}  // namespace orvane
