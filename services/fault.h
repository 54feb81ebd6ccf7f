#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include "services/server/http_server.h"
#include "services/service.h"

namespace orvane::services {
enum class FaultKind {
  status,          ///< `status` in place of the answer
  silence,         ///< the request is read, nothing is ever sent
  drop,            ///< half of the announced body, then the connection is lost
  hangUp,          ///< the connection is lost before the first byte of the answer
  garbage,         ///< a body that is no JSON
  truncatedJson,   ///< the first half of the document, as if it were whole
  redirect,        ///< to the same target at the origin of `Service::other`
  redirectWithin,  ///< to another path of the same origin, which answers rightly
  slow,            ///< the body trickles, one byte every `interval`
  huge,            ///< a body without end
  delay,           ///< nothing but `delay`
  tipLag,          ///< a tip height `blocks` too low; other documents stay as they are
  refuse,          ///< the port is closed until the faults are cleared; `path` and `count` unused
};

[[nodiscard]] std::string_view faultName(FaultKind kind);
[[nodiscard]] std::optional<FaultKind> faultNamed(std::string_view name);

/// A way to go wrong, for the requests to one service whose path and query contain `path`.
struct Fault {
  Service service = Service::pool;
  FaultKind kind = FaultKind::status;
  std::string path = {};                     ///< empty: every request
  std::optional<int> count = {};             ///< requests it hits; absent: all
  int status = 500;                          ///< for `status`
  std::chrono::milliseconds delay{0};        ///< waited before anything is sent
  std::chrono::milliseconds interval{1000};  ///< for `slow`
  std::int64_t blocks = 1;                   ///< for `tipLag`
};

/// The faults in force. Safe to use from any thread.
class FaultBook {
 public:
  void add(Fault fault);
  void clear();

  /// The fault that hits this request, the oldest of several, counted off; none: answer rightly.
  [[nodiscard]] std::optional<Fault> take(Service service, std::string_view target);

 private:
  std::mutex mutex_;
  std::vector<Fault> faults_;
};

/// The path in front of the right one that `FaultKind::redirectWithin` sends clients to.
inline constexpr std::string_view movedPrefix = "/moved";

/// What `fault` makes of the right answer where that is an answer of another content. Faults of
/// the connection leave it as it is. `elsewhere` is the origin that `redirect` points at.
[[nodiscard]] Response spoiled(Response right, const Request& request, const Fault& fault,
                               const std::string& elsewhere);

/// Whether the client ever gets a status line.
[[nodiscard]] bool sendsStatus(FaultKind kind);

/// Sends the answer the way the fault has it; returns when the client has all it will get.
[[nodiscard]] Outcome sendFaulty(Connection& connection, const Request& request,
                                 const Response& response, const Fault& fault);
}  // namespace orvane::services
