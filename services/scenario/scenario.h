#pragma once

#include <mutex>
#include <utility>
#include "services/scenario/chain.h"
#include "services/scenario/moment.h"

namespace orvane::services {
/// The one story that all services tell. Safe to use from any thread.
class Scenario {
 public:
  Scenario(std::chrono::sys_seconds start, double speed, Chain::Plan plan)
      : clock_(start, speed), chain_(std::move(plan)) {}

  [[nodiscard]] Moment now() const { return clock_.now(); }
  void advance(ScenarioSeconds time) { clock_.advance(time); }

  /// Calls `use` with the chain as it stands now, and gives back what it gives.
  auto withChain(auto use) {
    const std::lock_guard lock(mutex_);
    chain_.advanceTo(clock_.now().elapsed);
    return use(chain_);
  }

 private:
  ScenarioClock clock_;
  std::mutex mutex_;
  Chain chain_;
};
}  // namespace orvane::services
