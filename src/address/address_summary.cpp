#include "address/address_summary.h"
#include <utility>
#include "platform/decimal/decimal.h"

namespace orvane {
namespace {
/// Holds any sum of as many amounts as fit into memory, whatever their order and sign.
__extension__ using WideAmount = __int128;

ExplorerResult<std::int64_t> narrowed(WideAmount amount) {
  const auto sats = static_cast<std::int64_t>(amount);
  if (sats != amount) { return std::unexpected(ExplorerError{ExplorerError::Kind::decoding}); }
  return sats;
}

ExplorerResult<std::int64_t> balance(const AddressStats::Stats& stats) {
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

std::int64_t confirmations(std::int64_t tipHeight, std::optional<std::int64_t> blockHeight) {
  if (!blockHeight || *blockHeight > tipHeight) { return 0; }
  return saturatingSum(saturatingDifference(tipHeight, *blockHeight), 1);
}

ExplorerResult<std::optional<WatchedAddressTransaction>> incomingTransaction(
    const Transaction& transaction, std::string_view address) {
  const ExplorerResult<std::int64_t> sats = narrowed(paidTo(address, transaction.vout));
  if (!sats) { return std::unexpected(sats.error()); }
  if (*sats < 1) { return std::nullopt; }
  const Transaction::Status& status = transaction.status;
  return WatchedAddressTransaction{
      .txid = transaction.txid,
      .sats = *sats,
      .isCoinbase = !transaction.vin.empty() && transaction.vin.front().is_coinbase,
      .blockHeight = status.confirmed ? status.block_height : std::nullopt};
}

ExplorerResult<WatchedAddressSummary> buildSummary(const AddressStats& totals,
                                                   const std::vector<Transaction>& transactions,
                                                   std::int64_t tipHeight,
                                                   std::string_view address) {
  const ExplorerResult<std::int64_t> confirmed = balance(totals.chain_stats);
  if (!confirmed) { return std::unexpected(confirmed.error()); }
  const ExplorerResult<std::int64_t> pending = balance(totals.mempool_stats);
  if (!pending) { return std::unexpected(pending.error()); }
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
