#pragma once

#include <span>
#include <string>
#include "pool/history.h"

namespace orvane {
// A history for other programs to compute with, in any locale: the date (ISO 8601, UTC), the
// average hash rate in H/s, the shares, and the reward in BTC, as the pool gave it, and in
// satoshis. What is not known is empty. No field is taken for a formula, whatever the pool has
// sent.

/// A table in CSV (RFC 4180, UTF-8), a row a day beneath a row of titles.
[[nodiscard]] std::string historyCsv(std::span<const BraiinsHistoryDay> days);

/// The same columns without titles, for the clipboard: tabs between the fields, a line a day.
[[nodiscard]] std::string historyTabSeparated(std::span<const BraiinsHistoryDay> days);
}  // namespace orvane
