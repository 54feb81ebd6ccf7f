#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include "platform/http/http_transport.h"

namespace orvane {
/// Why the explorer gave no figures. Texts for people are made by the store.
struct ExplorerError {
  enum class Kind {
    badURL,
    transport,
    badServerResponse,
    decoding,
    cannotParseResponse,
    cancelled
  };
  Kind kind;
  HttpFailure failure = HttpFailure::other;  ///< for `transport`

  bool operator==(const ExplorerError&) const = default;
};

template <class T>
using ExplorerResult = std::expected<T, ExplorerError>;

/// The explorer's JSON documents, with the members that are read of them, under the API's own
/// names.

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

/// Decoders of the explorer's answers. Each gives nothing when any part of the body does not match
/// its document; such an answer is not used at all. Members that no record names are ignored.

/// The answer to `/address/` and an address.
[[nodiscard]] std::optional<AddressStats> decodeAddressStats(std::string_view body);
/// The answer to the same and `/txs`, in its order. An id has at most 128 bytes.
[[nodiscard]] std::optional<std::vector<Transaction>> decodeTransactions(std::string_view body);

/// The tip document's text: a decimal number with an optional sign, white space around it.
[[nodiscard]] std::optional<std::int64_t> parseTipHeight(std::string_view text);
}  // namespace orvane
