#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string_view>
#include <vector>

#include "address/address_summary.h"
#include "address/explorer_documents.h"
#include "address/explorer_error.h"

namespace orvane {

// From the explorer's documents to the figures that are shown. An amount that leaves 64 bits can
// only come from a malformed answer and is reported as `decoding`: no figure is better than a
// wrong one.

/// What the transaction paid to `address` (compared letter by letter), whoever sent it; nothing
/// when that is less than one satoshi.
[[nodiscard]] std::expected<std::optional<WatchedAddressTransaction>, ExplorerError>
incomingTransaction(const Transaction& transaction, std::string_view address);

/// The summary of one refresh, in one pass over the transactions, which keep their order.
[[nodiscard]] std::expected<WatchedAddressSummary, ExplorerError> buildSummary(
    const AddressStats& totals, const std::vector<Transaction>& transactions,
    std::int64_t tipHeight, std::string_view address);

}  // namespace orvane
