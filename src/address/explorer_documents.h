#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The explorer's JSON documents, with the members that are read of them, under the API's own
/// names.
namespace orvane {

/// The sums of everything that was ever paid to an address and from it: in blocks, and waiting.
struct AddressStats {
  struct Stats {
    std::int64_t funded_txo_sum = 0;  ///< satoshis
    std::int64_t spent_txo_sum = 0;   ///< satoshis
  };
  Stats chain_stats;
  Stats mempool_stats;
};

/// One transaction that pays to the address, or from it.
struct Transaction {
  struct Input {
    bool is_coinbase = false;
  };
  struct Output {
    std::optional<std::string> scriptpubkey_address;  ///< nothing: an output without an address
    std::int64_t value = 0;                           ///< satoshis
  };
  struct Status {
    bool confirmed = false;
    std::optional<std::int64_t> block_height;  ///< of the block that confirmed it
  };
  std::string txid;
  std::vector<Input> vin;
  std::vector<Output> vout;
  Status status;
};

}  // namespace orvane
