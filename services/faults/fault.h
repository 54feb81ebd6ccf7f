#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

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

}  // namespace orvane::services
