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

/// Makes transactions among one address and strangers, each with an id and strangers of its own.
class TransactionMaker {
 public:
  /// A stranger pays the address, and himself the change.
  [[nodiscard]] ChainTransaction payment(const std::string& address, std::int64_t sats);
  /// A block pays the address; with a share of it only, strangers get the rest.
  [[nodiscard]] ChainTransaction blockReward(const std::string& address, std::int64_t sats);
  /// A stranger pays the address all the outputs of `sats`, and data without an owner besides.
  [[nodiscard]] ChainTransaction paymentWithData(const std::string& address,
                                                 const std::vector<std::int64_t>& sats);
  /// A stranger pays `outputs` receivers, the address in the middle of them.
  [[nodiscard]] ChainTransaction batchPayment(const std::string& address, std::int64_t sats,
                                              std::size_t outputs);
  /// The address pays a stranger; the change, where there is some, comes back.
  [[nodiscard]] ChainTransaction spending(const std::string& address, std::int64_t sats,
                                          std::int64_t change);

 private:
  [[nodiscard]] std::string stranger();
  [[nodiscard]] std::string txid();
  [[nodiscard]] ChainTransaction paidByStranger(std::vector<ChainOutput> outputs);

  std::uint64_t strangers_ = 0;
  std::uint64_t transactions_ = 0;
};
}  // namespace orvane::services
