#include "services/scenario/transactions.h"
#include <algorithm>
#include <utility>
#include <fmt/format.h>
#include "services/scenario/noise.h"

namespace orvane::services {
namespace {
constexpr std::string_view bech32Characters = "qpzry9x8gf2tvdw0s3jn54khce6mua7l";
constexpr std::size_t addressLength = 42;

bool pays(const ChainOutput& output, std::string_view address) {
  return output.address && *output.address == address;
}

bool spends(const ChainInput& input, std::string_view address) {
  return !input.isCoinbase && input.address == address;
}

constexpr std::int64_t fee = 600;
constexpr std::int64_t blockSubsidy = 312'500'000;
constexpr std::int64_t strangersChange = 1'250'000;
}  // namespace

bool ChainTransaction::concerns(std::string_view address) const {
  return std::ranges::any_of(outputs, [&](const auto& output) { return pays(output, address); }) ||
         std::ranges::any_of(inputs, [&](const auto& input) { return spends(input, address); });
}

void addTo(AddressTotals& totals, const ChainTransaction& transaction, std::string_view address) {
  if (!transaction.concerns(address)) { return; }
  ++totals.transactions;
  for (const ChainOutput& output : transaction.outputs) {
    if (!pays(output, address)) { continue; }
    ++totals.fundedOutputs;
    totals.fundedSats += output.sats;
  }
  for (const ChainInput& input : transaction.inputs) {
    if (!spends(input, address)) { continue; }
    ++totals.spentOutputs;
    totals.spentSats += input.sats;
  }
}

/// In the shape of a real address, with a checksum that is wrong, so that no wallet pays it.
std::string TransactionMaker::stranger() {
  std::string address = "bc1q";
  std::uint64_t bits = scatter(~++strangers_);
  while (address.size() < addressLength) {
    address += bech32Characters[bits % bech32Characters.size()];
    bits = scatter(bits);
  }
  return address;
}

/// Invented; each number has an id of its own.
std::string TransactionMaker::txid() {
  const std::uint64_t number = ++transactions_;
  std::string id;
  for (std::uint64_t part = 0; part < 4; ++part) {
    id += fmt::format("{:016x}", scatter(scatter(number) + part));
  }
  return id;
}

ChainTransaction TransactionMaker::paidByStranger(std::vector<ChainOutput> outputs) {
  std::int64_t sum = fee;
  for (const ChainOutput& output : outputs) {
    sum += output.sats;
  }
  return {.txid = txid(),
          .inputs = {{.address = stranger(), .sats = sum}},
          .outputs = std::move(outputs)};
}

ChainTransaction TransactionMaker::payment(const std::string& address, std::int64_t sats) {
  return paidByStranger({{address, sats}, {stranger(), strangersChange}});
}

ChainTransaction TransactionMaker::blockReward(const std::string& address, std::int64_t sats) {
  ChainTransaction reward{
      .txid = txid(), .inputs = {{.isCoinbase = true}}, .outputs = {{address, sats}}};
  if (sats < blockSubsidy) { reward.outputs.emplace_back(stranger(), blockSubsidy - sats); }
  reward.outputs.emplace_back(std::nullopt, 0);
  return reward;
}

ChainTransaction TransactionMaker::paymentWithData(const std::string& address,
                                                   const std::vector<std::int64_t>& sats) {
  std::vector<ChainOutput> outputs{{std::nullopt, 0}};
  for (const std::int64_t value : sats) {
    outputs.emplace_back(address, value);
  }
  return paidByStranger(std::move(outputs));
}

ChainTransaction TransactionMaker::batchPayment(const std::string& address, std::int64_t sats,
                                                std::size_t outputs) {
  std::vector<ChainOutput> all;
  while (all.size() < outputs) {
    const auto place = all.size();
    if (place == outputs / 2) {
      all.emplace_back(address, sats);
    } else {
      all.emplace_back(stranger(), sats + 137 * static_cast<std::int64_t>(place));
    }
  }
  return paidByStranger(std::move(all));
}

ChainTransaction TransactionMaker::spending(const std::string& address, std::int64_t sats,
                                            std::int64_t change) {
  ChainTransaction transaction{.txid = txid(),
                               .inputs = {{.address = address, .sats = sats}},
                               .outputs = {{stranger(), sats - change - fee}}};
  if (change > 0) { transaction.outputs.emplace_back(address, change); }
  return transaction;
}
}  // namespace orvane::services
