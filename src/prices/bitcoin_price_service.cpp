#include "prices/bitcoin_price_service.h"
#include <clocale>
#include <cstdlib>
#include <memory>
#include <type_traits>
#include <utility>
#include <locale.h>

namespace orvane {
namespace {
using Kind = PriceError::Kind;

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

struct FreeLocale {
  void operator()(locale_t locale) const { freelocale(locale); }
};
using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, FreeLocale>;

CurrentPriceResponse readCurrentPrice(JsonValue root, JsonMatch& match) {
  const JsonObjectReader document(root, match);
  const JsonObjectReader bitcoin(document.value("bitcoin"), match);
  return {.bitcoin = {.eur = bitcoin.number("eur"), .usd = bitcoin.number("usd")}};
}

std::string readRate(JsonValue value, JsonMatch& match) {
  const std::optional<std::string_view> text = value.text();
  if (!text) { match.fail(); }
  return std::string(text.value_or(std::string_view()));
}

CoinbasePriceResponse readCoinbasePrice(JsonValue root, JsonMatch& match) {
  const JsonObjectReader document(root, match);
  const JsonObjectReader data(document.value("data"), match);
  return {.data = {.rates = readJsonMembers(data.value("rates"), match, readRate)}};
}

std::optional<double> rate(const CoinbasePriceResponse& response, PreferredFiatCurrency currency) {
  const auto found = findRecord(response.data.rates, rawValue(currency));
  return found == response.data.rates.end() ? std::nullopt : parsePriceText(found->second);
}

PriceResult pricesFromCoinGecko(const CurrentPriceResponse& response) {
  return CurrentBitcoinPrices{.eur = response.bitcoin.eur, .usd = response.bitcoin.usd};
}

PriceResult pricesFromCoinbase(const CoinbasePriceResponse& response) {
  const std::optional<double> eur = rate(response, PreferredFiatCurrency::eur);
  const std::optional<double> usd = rate(response, PreferredFiatCurrency::usd);
  if (!eur || !usd) { return std::unexpected(PriceError{.kind = Kind::cannotParseResponse}); }
  return CurrentBitcoinPrices{.eur = *eur, .usd = *usd};
}

template <class Document>
Task<PriceResult> fetch(HttpTransport& transport, std::string url,
                        std::optional<Document> (*decode)(std::string_view body),
                        PriceResult (*pricesFrom)(const Document& response)) {
  HttpRequest request{.url = std::move(url)};
  HttpResult result = co_await transport.get(std::move(request));
  const std::expected<std::string, PriceError> body = bodyOf<PriceError>(std::move(result));
  const std::expected<Document, PriceError> response = decoded(body, decode);
  if (!response) { co_return std::unexpected(response.error()); }
  co_return pricesFrom(*response);
}
}  // namespace

std::optional<CurrentPriceResponse> decodeCurrentPrice(std::string_view body) {
  return decodeJson(body, readCurrentPrice);
}

std::optional<CoinbasePriceResponse> decodeCoinbasePrice(std::string_view body) {
  return decodeJson(body, readCoinbasePrice);
}

std::optional<double> parsePriceText(const std::string& text) {
  const Locale cLocale(newlocale(LC_ALL_MASK, "C", nullptr));
  if (!cLocale || text.empty() || whiteSpace.contains(text.front())) { return std::nullopt; }
  // A NUL inside the text ends the conversion, but then not at the text's end.
  char* end = nullptr;
  const double value = strtod_l(text.c_str(), &end, cLocale.get());
  if (end != text.c_str() + text.size()) { return std::nullopt; }
  return value;
}

BitcoinPriceService::BitcoinPriceService(HttpTransport& transport, std::string primaryHost,
                                         std::string fallbackHost)
    : transport_(transport),
      primaryHost_(std::move(primaryHost)),
      fallbackHost_(std::move(fallbackHost)) {}

Task<PriceResult> BitcoinPriceService::current() {
  const PriceResult primary = co_await fetchFromCoinGecko();
  if (primary || primary.error().kind == Kind::cancelled) { co_return primary; }
  co_return co_await fetchFromCoinbase();
}

Task<PriceResult> BitcoinPriceService::fetchFromCoinGecko() {
  return fetch(transport_,
               "https://" + primaryHost_ + "/api/v3/simple/price?ids=bitcoin&vs_currencies=eur,usd",
               decodeCurrentPrice, pricesFromCoinGecko);
}

Task<PriceResult> BitcoinPriceService::fetchFromCoinbase() {
  return fetch(transport_, "https://" + fallbackHost_ + "/v2/exchange-rates?currency=BTC",
               decodeCoinbasePrice, pricesFromCoinbase);
}
}  // namespace orvane
