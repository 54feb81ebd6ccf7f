#pragma once

#include <utility>
#include "core/balance_state.h"
#include "platform/async/task.h"
#include "platform/http/http_transport.h"
#include "prices/bitcoin_price_service.h"

namespace orvane {
// What the store's two refresh cycles have in common: the pool's, in PoolAccount, and the
// address's, in AddressWatch. Each is a task that refreshes at once, sleeps, and refreshes again
// until it is cancelled; a restart cancels it and starts its successor from the queue, so that the
// old one resets its busy flag before the new one sets it.

/// Whether a client's result is of no use any more, because the task that asked for it has been
/// cancelled: before the request ended, or between its end and now. Nothing of it is shown: a
/// refusal of the old token that arrives late says nothing about the new one.
template <class Result>
[[nodiscard]] bool isCancelled(const TaskContext& context, const Result& result) {
  if (context.stop.stop_requested()) { return true; }
  return !result && result.error().kind == Result::error_type::Kind::cancelled;
}

/// Whether a cycle is to be repeated as soon as there is a network. A failure that has another
/// cause than the want of one keeps to the cycle's own pace.
class NetworkNeed {
 public:
  void beginCycle() {
    *this = {};
    isRunning_ = true;
  }
  template <class Error>
  void noteFailure(const Error& error) {
    if (error.kind == Error::Kind::transport && meansUnreachable(error.failure)) { fails_ = true; }
  }
  /// True when the network that the cycle lacked came while it ran: it may begin again at once.
  [[nodiscard]] bool endCycle() {
    isRunning_ = false;
    return fails_ && hasCome_;
  }
  /// A network has come. True when the last cycle ended for want of one.
  [[nodiscard]] bool takeNetwork() {
    hasCome_ = true;
    return fails_ && !isRunning_;
  }

 private:
  bool isRunning_ = false;
  bool fails_ = false;    ///< for want of a network
  bool hasCome_ = false;  ///< a network, since the cycle began
};

/// Keeps the prices fresh; run by the pool's cycle, or by the address's when there is no token.
class PriceFeed {
 public:
  PriceFeed(BalanceFields& fields, BitcoinPriceService service)
      : fields_(fields), service_(std::move(service)) {}

  /// Fetches the prices once. When that fails the last ones stay, without a word.
  [[nodiscard]] Task<void> refreshPrices() {
    const TaskContext context = co_await currentContext();
    const PriceResult prices = co_await service_.current();
    if (isCancelled(context, prices) || !prices) { co_return; }
    fields_.set(&BalanceState::prices, *prices);
    fields_.invokeOnChange();
  }

 private:
  BalanceFields& fields_;
  BitcoinPriceService service_;
};
}  // namespace orvane
