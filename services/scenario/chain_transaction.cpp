#include "services/scenario/chain_transaction.h"

#include <algorithm>

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

std::string inventedTxid(std::uint64_t number) {
  std::string txid;
  for (std::uint64_t part = 0; part < 4; ++part) {
    txid += fmt::format("{:016x}", scatter(scatter(number) + part));
  }
  return txid;
}

std::string inventedAddress(std::uint64_t number) {
  std::string address = "bc1q";
  std::uint64_t bits = scatter(~number);
  while (address.size() < addressLength) {
    address += bech32Characters[bits % bech32Characters.size()];
    bits = scatter(bits);
  }
  return address;
}

}  // namespace orvane::services
