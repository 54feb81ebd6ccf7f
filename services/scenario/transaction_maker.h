#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "services/scenario/chain_transaction.h"

namespace orvane::services {

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
  [[nodiscard]] std::string stranger() { return inventedAddress(++strangers_); }
  [[nodiscard]] std::string txid() { return inventedTxid(++transactions_); }
  [[nodiscard]] ChainTransaction paidByStranger(std::vector<ChainOutput> outputs);

  std::uint64_t strangers_ = 0;
  std::uint64_t transactions_ = 0;
};

}  // namespace orvane::services
