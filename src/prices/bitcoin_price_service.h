#pragma once

#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include "platform/async/task.h"
#include "platform/http/http_transport.h"
#include "platform/json/json_reader.h"
#include "prices/bitcoin_prices.h"

namespace orvane {
/// The answers of the two price sources, with the members that are read of them.

/// The primary source's.
struct CurrentPriceResponse {
  struct Bitcoin {
    double eur = 0;
    double usd = 0;
  };
  Bitcoin bitcoin;
};

/// The fallback source's.
struct CoinbasePriceResponse {
  struct Data {
    /// What one bitcoin is worth, by currency code in upper case, as number texts.
    NamedRecords<std::string> rates;
  };
  Data data;
};

/// Decoders of the price sources' answers. Each gives nothing when any part of the body does not
/// match its document; members that no record names are ignored.

[[nodiscard]] std::optional<CurrentPriceResponse> decodeCurrentPrice(std::string_view body);
/// Every rate must be a string, not only those that are used.
[[nodiscard]] std::optional<CoinbasePriceResponse> decodeCoinbasePrice(std::string_view body);

/// The number that the whole of `text` spells in the syntax of the C library's strtod, with "." as
/// the decimal separator whatever the user's locale: signs, exponents, hexadecimal numbers, "inf"
/// and "nan" count. Nothing for any other text, for the empty one and for one that begins with
/// white space. A number beyond the range of a double is infinite, one too small for it is zero.
[[nodiscard]] std::optional<double> parsePriceText(const std::string& text);

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
