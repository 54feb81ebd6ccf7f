#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include "address/explorer_documents.h"

namespace orvane {
/// Confirmations after which a block reward can be spent.
inline constexpr std::int64_t coinbaseMaturity = 100;

/// A transaction that paid the watched address; its identity is `txid`.
struct WatchedAddressTransaction {
  std::string txid;
  std::int64_t sats = 0;  ///< what it paid to the address, at least 1
  bool isCoinbase = false;
  std::optional<std::int64_t> blockHeight = {};  ///< absent while unconfirmed

  bool operator==(const WatchedAddressTransaction&) const = default;
};

/// What the explorer knows of one address at one moment. Amounts are satoshis.
struct WatchedAddressSummary {
  std::int64_t confirmedSats = 0;
  std::int64_t pendingSats = 0;  ///< net unconfirmed change; may be negative
  std::int64_t tipHeight = 0;
  std::vector<WatchedAddressTransaction> incoming;  ///< in the explorer's order

  bool operator==(const WatchedAddressSummary&) const = default;
};

/// Blocks on top of and including `blockHeight`; 0 for an unconfirmed transaction and for a tip
/// below the block. Saturates.
[[nodiscard]] std::int64_t confirmations(std::int64_t tipHeight,
                                         std::optional<std::int64_t> blockHeight);

// From the explorer's documents to the figures that are shown. An amount that leaves 64 bits can
// only come from a malformed answer and is reported as `decoding`: no figure is better than a
// wrong one.

/// What the transaction paid to `address` (compared letter by letter), whoever sent it; nothing
/// when that is less than one satoshi.
[[nodiscard]] ExplorerResult<std::optional<WatchedAddressTransaction>> incomingTransaction(
    const Transaction& transaction, std::string_view address);

/// The summary of one refresh, in one pass over the transactions, which keep their order.
[[nodiscard]] ExplorerResult<WatchedAddressSummary> buildSummary(
    const AddressStats& totals, const std::vector<Transaction>& transactions,
    std::int64_t tipHeight, std::string_view address);
}  // namespace orvane
