// The price sources' documents and the number texts inside them.

#include <cstddef>
#include <cstdint>
#include <string>

#include "prices/bitcoin_price_service.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  (void)parsePriceText(bytes);
  (void)decodeCurrentPrice(bytes);
  if (const auto response = decodeCoinbasePrice(bytes)) {
    for (const auto& [currency, rate] : response->data.rates) {
      (void)parsePriceText(rate);
    }
  }
  return 0;
}
