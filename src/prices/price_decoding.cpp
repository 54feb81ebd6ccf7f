#include "prices/price_decoding.h"

#include "platform/json/json_reader.h"

namespace orvane {
namespace {

template <class Response>
std::optional<Response> decode(std::string_view body, Response (*read)(JsonValue, JsonMatch&)) {
  const std::optional<JsonDocument> document = JsonDocument::parse(body);
  if (!document) {
    return std::nullopt;
  }
  JsonMatch match;
  std::optional<Response> response = read(document->root(), match);
  if (match.failed()) {
    response.reset();
  }
  return response;
}

/// The member's value; null, which no reader takes, when the match has failed.
JsonValue required(const JsonObjectReader& reader, std::string_view name) {
  return reader.value(name).value_or(JsonValue::null());
}

CurrentPriceResponse readCurrentPrice(JsonValue root, JsonMatch& match) {
  const JsonObjectReader document(root, match);
  const JsonObjectReader bitcoin(required(document, "bitcoin"), match);
  return {.bitcoin = {.eur = bitcoin.number("eur"), .usd = bitcoin.number("usd")}};
}

CoinbasePriceResponse readCoinbasePrice(JsonValue root, JsonMatch& match) {
  const JsonObjectReader document(root, match);
  const JsonObjectReader data(required(document, "data"), match);
  CoinbasePriceResponse response;
  for (const JsonMember rate : objectMembers(required(data, "rates"), match)) {
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
  return decode(body, readCurrentPrice);
}

std::optional<CoinbasePriceResponse> decodeCoinbasePrice(std::string_view body) {
  return decode(body, readCoinbasePrice);
}

}  // namespace orvane
