#pragma once

#include <expected>
#include <string>

#include "platform/async/task.h"
#include "platform/http/http_transport.h"
#include "prices/bitcoin_prices.h"

namespace orvane {

/// Why there is no price: of the fallback's failure, for it was asked last.
struct PriceError {
  enum class Kind { transport, badServerResponse, decoding, cannotParseResponse, cancelled };
  Kind kind;
  HttpFailure failure = HttpFailure::other;  ///< for `transport`

  bool operator==(const PriceError&) const = default;
};

using PriceResult = std::expected<CurrentBitcoinPrices, PriceError>;

/// Fetches the price of one bitcoin from a primary source and, whenever that fails, from a
/// fallback. Keeps nothing between calls. Called by the store's loops.
class BitcoinPriceService {
 public:
  /// Hosts are "host[:port]".
  BitcoinPriceService(HttpTransport& transport, std::string primaryHost, std::string fallbackHost);

  /// The primary source's prices, else the fallback's prices or failure. A cancelled call does not
  /// go on to the fallback.
  [[nodiscard]] Task<PriceResult> current();

  [[nodiscard]] Task<PriceResult> fetchFromCoinGecko();
  [[nodiscard]] Task<PriceResult> fetchFromCoinbase();

 private:
  HttpTransport& transport_;
  std::string primaryHost_;
  std::string fallbackHost_;
};

}  // namespace orvane
