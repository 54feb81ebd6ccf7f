#pragma once

#include "core/balance_state.h"
#include "platform/async/task.h"
#include "prices/bitcoin_price_service.h"

namespace orvane {

/// Keeps the store's prices fresh; run by whichever cycle is responsible for them.
class PriceFeed {
 public:
  PriceFeed(BalanceFields& fields, BitcoinPriceService service)
      : fields_(fields), service_(std::move(service)) {}

  /// Fetches the prices once. When that fails the last ones stay, without a word.
  [[nodiscard]] Task<void> refreshPrices();

 private:
  BalanceFields& fields_;
  BitcoinPriceService service_;
};

}  // namespace orvane
