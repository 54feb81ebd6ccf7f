#pragma once

#include <chrono>
#include <mutex>

namespace orvane::services {
using ScenarioSeconds = std::chrono::duration<double>;

/// A moment of the story that the services tell. Its calendar starts at the real time of the start
/// and runs on with the story, so with a higher speed or after an advance it lies ahead of the
/// real one.
struct Moment {
  ScenarioSeconds elapsed{0};  ///< since the start
  std::chrono::sys_seconds calendar;
};

/// Turns the real clock into moments of the story. Safe to use from any thread.
class ScenarioClock {
 public:
  /// `speed`: seconds of the story in a second of real time.
  ScenarioClock(std::chrono::sys_seconds start, double speed) : start_(start), speed_(speed) {}

  [[nodiscard]] Moment now() const {
    const std::lock_guard lock(mutex_);
    const ScenarioSeconds real = std::chrono::steady_clock::now() - begin_;
    const ScenarioSeconds elapsed = real * speed_ + skipped_;
    return {.elapsed = elapsed,
            .calendar = start_ + std::chrono::floor<std::chrono::seconds>(elapsed)};
  }

  void advance(ScenarioSeconds time) {
    const std::lock_guard lock(mutex_);
    skipped_ += time;
  }

 private:
  mutable std::mutex mutex_;
  std::chrono::sys_seconds start_;
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
  double speed_;
  ScenarioSeconds skipped_{0};
};
}  // namespace orvane::services
