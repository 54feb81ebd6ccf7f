#pragma once

#include <functional>
#include "platform/async/signal.h"

namespace orvane {
/// Says when a network comes. Main thread only.
class NetworkWatch {
 public:
  virtual ~NetworkWatch() = default;

  /// `listener` hears, from the event loop, each time that more becomes reachable than this
  /// machine alone. It hears nothing on a system that does not tell.
  [[nodiscard]] virtual Registration onReachable(std::function<void()> listener) = 0;
};
}  // namespace orvane
