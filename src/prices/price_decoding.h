#pragma once

#include <optional>
#include <string_view>

#include "prices/price_documents.h"

/// Decoders of the price sources' answers. Each gives nothing when any part of the body does not
/// match its document; members that no record names are ignored.
namespace orvane {

[[nodiscard]] std::optional<CurrentPriceResponse> decodeCurrentPrice(std::string_view body);
/// Every rate must be a string, not only those that are used.
[[nodiscard]] std::optional<CoinbasePriceResponse> decodeCoinbasePrice(std::string_view body);

}  // namespace orvane
