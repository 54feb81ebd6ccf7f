#pragma once

#include <functional>
#include <optional>

#include "platform/async/executor.h"
#include "platform/async/timer.h"

namespace orvane {

/// Ends the program once nothing that must not be lost is on its way any more, and after two
/// seconds in any case. The event loop goes on meanwhile.
class OrderlyExit {
 public:
  /// `mayEnd` is asked again and again; `end` runs once.
  OrderlyExit(Executor& executor, std::function<bool()> mayEnd, std::function<void()> end);

  /// The first call counts.
  void begin();

 private:
  void poll();

  Executor& executor_;
  std::function<bool()> mayEnd_;
  std::function<void()> end_;
  std::optional<Instant> deadline_;
  std::optional<OneShotTimer> nextPoll_;
};

}  // namespace orvane
