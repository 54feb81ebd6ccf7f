#pragma once

#include <chrono>
#include <expected>
#include <string>
#include <vector>

#include "platform/async/async_mutex.h"
#include "platform/async/executor.h"
#include "platform/async/task.h"
#include "platform/http/http_transport.h"
#include "pool/account.h"
#include "pool/history.h"
#include "pool/pool_error.h"

namespace orvane {

/// The one way to the pool's account API. At least `poolRequestGap` lies between any two of its
/// requests: a call that comes early waits for its slot, first come, first served. One client
/// exists per process, so all pool requests share the pacing.
class BraiinsAccountClient {
 public:
  static constexpr std::chrono::seconds poolRequestGap{60};

  /// `poolHost` is "host[:port]".
  BraiinsAccountClient(Executor& executor, HttpTransport& transport, std::string poolHost);

  /// The access token sent with every request, unchanged; the store assigns it. No request is sent
  /// while it is empty or has a line break or NUL in it, which no header can carry: calls then fail
  /// with `userAuthenticationRequired`, at once and without using a slot.
  std::string token;

  [[nodiscard]] Task<std::expected<BraiinsAccountStats, PoolError>> fetchStats();
  /// In display order.
  [[nodiscard]] Task<std::expected<std::vector<BraiinsWorkerStatus>, PoolError>> fetchWorkers();
  /// Two requests, rewards and hash rates; newest day first. Without the second the days carry
  /// rewards only.
  [[nodiscard]] Task<std::expected<std::vector<BraiinsHistoryDay>, PoolError>> fetchHistory();

 private:
  /// One paced request; its body.
  [[nodiscard]] Task<std::expected<std::string, PoolError>> fetchPoolData(std::string url);
  /// Waits until a request may be sent and claims that moment. A failed claim uses no slot.
  [[nodiscard]] Task<std::expected<void, PoolError>> claimSlot();

  Executor& executor_;
  HttpTransport& transport_;
  std::string poolBaseURL_;
  AsyncMutex slot_;
  Instant nextRequestAt_ = Instant::min();
};

}  // namespace orvane
