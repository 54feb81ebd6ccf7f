#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pool/history_day.h"

/// The persisted form of a history, which the store keeps in the user's settings: a JSON array of
/// days, with dates as seconds since 2001-01-01T00:00:00 UTC.
namespace orvane {

/// Nothing when a day cannot be written: a hash rate that is not finite, a reward text that is not
/// UTF-8. Dates in the first 31 years of the 64-bit range are moved to their end.
[[nodiscard]] std::optional<std::string> encodeHistory(std::span<const BraiinsHistoryDay> days);

/// Nothing when the bytes are not such a list as a whole. In stored order. A date may be any
/// number: a fraction of a second is dropped towards the past, so the calendar day stays, and a
/// moment beyond the 64-bit range becomes its nearest end.
[[nodiscard]] std::optional<std::vector<BraiinsHistoryDay>> decodeHistory(std::string_view bytes);

}  // namespace orvane
