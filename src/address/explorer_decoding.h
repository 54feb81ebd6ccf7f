#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "address/explorer_documents.h"

/// Decoders of the explorer's answers. Each gives nothing when any part of the body does not match
/// its document; such an answer is not used at all. Members that no record names are ignored.
namespace orvane {

/// The answer to `/address/` and an address.
[[nodiscard]] std::optional<AddressStats> decodeAddressStats(std::string_view body);
/// The answer to the same and `/txs`, in its order.
[[nodiscard]] std::optional<std::vector<Transaction>> decodeTransactions(std::string_view body);

/// The tip document's text: a decimal number with an optional sign, white space around it.
[[nodiscard]] std::optional<std::int64_t> parseTipHeight(std::string_view text);

}  // namespace orvane
