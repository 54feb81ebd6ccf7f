#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvane {

// The explorer's JSON documents, member by member under the API's own names.

struct AddressStats {
  struct Stats {
    std::int64_t funded_txo_sum = 0;  ///< satoshis
    std::int64_t spent_txo_sum = 0;   ///< satoshis
  };
  Stats chain_stats;
  Stats mempool_stats;
};

struct Transaction {
  struct Input {
    bool is_coinbase = false;
  };
  struct Output {
    std::optional<std::string> scriptpubkey_address;
    std::int64_t value = 0;  ///< satoshis
  };
  struct Status {
    bool confirmed = false;
    std::optional<std::int64_t> block_height;
  };
  std::string txid;
  std::vector<Input> vin;
  std::vector<Output> vout;
  Status status;
};

}  // namespace orvane
