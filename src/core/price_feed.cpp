#include "core/price_feed.h"

#include "core/balance_platform.h"

namespace orvane {

Task<void> PriceFeed::refreshPrices() {
  const TaskContext context = co_await currentContext();
  const PriceResult prices = co_await service_.current();
  if (!prices || isCancelled(context, prices)) { co_return; }
  fields_.set(&BalanceState::prices, *prices);
  fields_.invokeOnChange();
}

}  // namespace orvane
