#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::services {

struct ChainInput {
  bool isCoinbase = false;
  std::string address = {};  ///< whose output is spent; empty for a coinbase input
  std::int64_t sats = 0;
};

struct ChainOutput {
  std::optional<std::string> address;  ///< absent: data without an owner
  std::int64_t sats = 0;
};

struct ChainTransaction {
  std::string txid;
  std::vector<ChainInput> inputs;
  std::vector<ChainOutput> outputs;
  std::optional<std::int64_t> blockHeight = {};  ///< absent: unconfirmed

  [[nodiscard]] bool concerns(std::string_view address) const;
};

/// What the outputs of some transactions gave to an address, and what their inputs took from it.
struct AddressTotals {
  std::int64_t transactions = 0;
  std::int64_t fundedOutputs = 0;
  std::int64_t fundedSats = 0;
  std::int64_t spentOutputs = 0;
  std::int64_t spentSats = 0;
};

void addTo(AddressTotals& totals, const ChainTransaction& transaction, std::string_view address);

/// An invented id; each number has one of its own.
[[nodiscard]] std::string inventedTxid(std::uint64_t number);

/// An invented address in the shape of a real one; its checksum is wrong, so no wallet pays it.
[[nodiscard]] std::string inventedAddress(std::uint64_t number);

}  // namespace orvane::services
