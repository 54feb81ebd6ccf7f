// The price sources' documents and the number texts inside them.

#include "fuzzer.h"
#include "prices/bitcoin_price_service.h"

void orvane::tryInput(std::string_view input) {
  (void)parsePriceText(std::string(input));
  (void)decodeCurrentPrice(input);
  if (const auto response = decodeCoinbasePrice(input)) {
    for (const auto& [currency, rate] : response->data.rates) {
      (void)parsePriceText(rate);
    }
  }
}
