#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "address/explorer_documents.h"

namespace orvane {

// Each reads the body of one answer. Nothing when any part of it is not as its record says; such
// an answer is not used at all.

[[nodiscard]] std::optional<AddressStats> decodeAddressStats(std::string_view body);
[[nodiscard]] std::optional<std::vector<Transaction>> decodeTransactions(std::string_view body);

/// The tip document's text: a decimal number with an optional sign, white space around it.
[[nodiscard]] std::optional<std::int64_t> parseTipHeight(std::string_view text);

}  // namespace orvane
