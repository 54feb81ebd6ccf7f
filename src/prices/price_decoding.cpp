#include "prices/price_decoding.h"

#include "platform/json/json_decoding.h"

namespace orvane {
namespace {

CurrentPriceResponse readCurrentPrice(JsonValue root, JsonMatch& match) {
  const JsonObjectReader document(root, match);
  const JsonObjectReader bitcoin(document.value("bitcoin"), match);
  return {.bitcoin = {.eur = bitcoin.number("eur"), .usd = bitcoin.number("usd")}};
}

CoinbasePriceResponse readCoinbasePrice(JsonValue root, JsonMatch& match) {
  const JsonObjectReader document(root, match);
  const JsonObjectReader data(document.value("data"), match);
  CoinbasePriceResponse response;
  for (const JsonMember rate : objectMembers(data.value("rates"), match)) {
    const std::optional<std::string_view> text = rate.value.text();
    if (!text) {
      match.fail();
      break;
    }
    response.data.rates.insert_or_assign(std::string(rate.name), std::string(*text));
  }
  return response;
}

}  // namespace

std::optional<CurrentPriceResponse> decodeCurrentPrice(std::string_view body) {
  return decodeJson(body, readCurrentPrice);
}

std::optional<CoinbasePriceResponse> decodeCoinbasePrice(std::string_view body) {
  return decodeJson(body, readCoinbasePrice);
}

}  // namespace orvane
