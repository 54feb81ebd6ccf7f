#include "address/address_summary.h"

#include <limits>
#include <utility>

namespace orvane {

std::int64_t confirmations(std::int64_t tipHeight, std::optional<std::int64_t> blockHeight) {
  if (!blockHeight || *blockHeight > tipHeight) { return 0; }
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
  // The heights of a malformed answer may lie further apart than a signed number can tell.
  const std::uint64_t blocksOnTop =
      static_cast<std::uint64_t>(tipHeight) - static_cast<std::uint64_t>(*blockHeight);
  return blocksOnTop < static_cast<std::uint64_t>(most) ? static_cast<std::int64_t>(blocksOnTop) + 1
                                                        : most;
}

namespace {

/// Holds any sum of as many amounts as fit into memory, whatever their order and sign.
__extension__ using WideAmount = __int128;

std::expected<std::int64_t, ExplorerError> narrowed(WideAmount amount) {
  const auto sats = static_cast<std::int64_t>(amount);
  if (sats != amount) { return std::unexpected(ExplorerError{ExplorerError::Kind::decoding}); }
  return sats;
}

std::expected<std::int64_t, ExplorerError> balance(const AddressStats::Stats& stats) {
  return narrowed(WideAmount{stats.funded_txo_sum} - stats.spent_txo_sum);
}

WideAmount paidTo(std::string_view address, const std::vector<Transaction::Output>& outputs) {
  WideAmount sum = 0;
  for (const Transaction::Output& output : outputs) {
    if (output.scriptpubkey_address == address) { sum += output.value; }
  }
  return sum;
}

}  // namespace

std::expected<std::optional<WatchedAddressTransaction>, ExplorerError> incomingTransaction(
    const Transaction& transaction, std::string_view address) {
  const std::expected<std::int64_t, ExplorerError> sats =
      narrowed(paidTo(address, transaction.vout));
  if (!sats) { return std::unexpected(sats.error()); }
  if (*sats < 1) { return std::nullopt; }
  const Transaction::Status& status = transaction.status;
  return WatchedAddressTransaction{
      .txid = transaction.txid,
      .sats = *sats,
      .isCoinbase = !transaction.vin.empty() && transaction.vin.front().is_coinbase,
      .blockHeight = status.confirmed ? status.block_height : std::nullopt};
}

std::expected<WatchedAddressSummary, ExplorerError> buildSummary(
    const AddressStats& totals, const std::vector<Transaction>& transactions,
    std::int64_t tipHeight, std::string_view address) {
  const auto confirmed = balance(totals.chain_stats);
  const auto pending = balance(totals.mempool_stats);
  if (!confirmed || !pending) {
    return std::unexpected(confirmed ? pending.error() : confirmed.error());
  }
  WatchedAddressSummary summary{
      .confirmedSats = *confirmed, .pendingSats = *pending, .tipHeight = tipHeight, .incoming = {}};
  for (const Transaction& transaction : transactions) {
    auto incoming = incomingTransaction(transaction, address);
    if (!incoming) { return std::unexpected(incoming.error()); }
    if (*incoming) { summary.incoming.push_back(*std::move(*incoming)); }
  }
  return summary;
}

}  // namespace orvane
