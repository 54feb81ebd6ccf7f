#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <fmt/format.h>

namespace orvane::test {

inline const std::string watchedAddress = "bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq";

/// What the explorer writes about one transaction: confirmed, without outputs unless said.
class TransactionText {
 public:
  explicit TransactionText(std::string txid) : txid_(std::move(txid)) {}

  TransactionText& paying(const std::string& address, std::int64_t sats) {
    outputs_.push_back(fmt::format(R"({{"scriptpubkey_address":"{}","value":{}}})", address, sats));
    return *this;
  }
  TransactionText& coinbase() {
    isCoinbase_ = true;
    return *this;
  }

  [[nodiscard]] std::string json() const {
    return fmt::format(R"({{"txid":"{}","vin":[{{"is_coinbase":{}}}],"vout":[{}],)"
                       R"("status":{{"confirmed":true,"block_height":850000}}}})",
                       txid_, isCoinbase_, fmt::join(outputs_, ","));
  }

 private:
  std::string txid_;
  std::vector<std::string> outputs_;
  bool isCoinbase_ = false;
};

inline std::string totalsText(std::int64_t funded, std::int64_t spent) {
  return fmt::format(R"({{"chain_stats":{{"funded_txo_sum":{},"spent_txo_sum":{}}},)"
                     R"("mempool_stats":{{"funded_txo_sum":0,"spent_txo_sum":20000}}}})",
                     funded, spent);
}

}  // namespace orvane::test
