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

namespace orvane {
/// Why a pool request gave no figures. Texts for people are made by the store.
struct PoolError {
  enum class Kind {
    badURL,
    userAuthenticationRequired,
    badServerResponse,
    transport,
    decoding,
    cancelled,  ///< the calling task was cancelled: waiting for its slot or in flight
  };
  Kind kind;
  HttpFailure failure = HttpFailure::other;  ///< for `transport`

  bool operator==(const PoolError&) const = default;
};

template <class T>
using PoolResult = std::expected<T, PoolError>;

/// The one way to the pool's account API. At least `poolRequestGap` lies between any two of its
/// requests: a call that comes early waits for its slot, figures and workers before the history,
/// and otherwise first come, first served. One client exists per process, so all pool requests
/// share the pacing.
///
/// Calls queue for a mutex and hold it only while they wait for the slot, so the next one begins to
/// wait as soon as this one's request leaves. A call of the history waits for the slot first and
/// queues only when it is open: who came meanwhile is in the queue before it, and it waits again.
/// The slot is claimed before the request is sent: a failure holds back the next one as an answer
/// does, a cancelled wait does not.
class BraiinsAccountClient {
 public:
  static constexpr std::chrono::seconds poolRequestGap{60};

  /// `poolHost` is "host[:port]".
  BraiinsAccountClient(Executor& executor, HttpTransport& transport, std::string poolHost);

  /// The access token sent with every request, unchanged; the store assigns it. No request is sent
  /// while it is empty or has a line break or NUL in it, which no header can carry: calls then fail
  /// with `userAuthenticationRequired`, at once and without using a slot.
  Secret token;

  [[nodiscard]] Task<PoolResult<BraiinsAccountStats>> fetchStats();
  /// In display order.
  [[nodiscard]] Task<PoolResult<std::vector<BraiinsWorkerStatus>>> fetchWorkers();
  /// Two requests, rewards and hash rates; newest day first. Without the second the days carry
  /// rewards only.
  [[nodiscard]] Task<PoolResult<std::vector<BraiinsHistoryDay>>> fetchHistory();

 private:
  enum class Urgency { figures, history };

  /// The body of the answer to one paced request; `path` begins with "/".
  [[nodiscard]] Task<PoolResult<std::string>> fetchPoolData(std::string path, Urgency urgency);
  /// Waits until a request may be sent and claims that moment. A failed claim uses no slot.
  [[nodiscard]] Task<PoolResult<void>> claimSlot(Urgency urgency);

  Executor& executor_;
  HttpTransport& transport_;
  std::string poolBaseURL_;
  AsyncMutex slot_;
  Instant nextRequestAt_ = Instant::min();
};
}  // namespace orvane
