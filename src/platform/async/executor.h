#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace orvane {
/// The clock that waits are measured on: it never jumps and it counts the time the machine
/// spends suspended, so a wait that ends during the night is over on resume. Read through
/// `Executor::now`, never directly.
struct ExecutorClock {
  using duration = std::chrono::nanoseconds;
  using rep = duration::rep;
  using period = duration::period;
  using time_point = std::chrono::time_point<ExecutorClock>;
  static constexpr bool is_steady = true;
};

using Instant = ExecutorClock::time_point;

/// A moment of the calendar, for showing and for dates in requests; it may jump.
using WallTime = std::chrono::sys_time<std::chrono::milliseconds>;

/// The main thread's queue and clock. Everything of the program runs in its callbacks, one at a
/// time and in the order described here; nothing else in the program reads a clock or sleeps.
/// All calls are made on the main thread.
class Executor {
 public:
  using Callback = std::function<void()>;
  using TimerId = std::uint64_t;

  virtual ~Executor() = default;

  [[nodiscard]] virtual Instant now() const = 0;
  [[nodiscard]] virtual WallTime wallClock() const = 0;

  /// Runs `callback` once, soon, never inside this call. Callbacks run in the order of their posts.
  virtual void post(Callback callback) = 0;

  /// Runs `callback` once, at `when` or as soon after it as the thread is free; a moment in the
  /// past means soon. Timers that are due together run in the order of their moments.
  virtual TimerId schedule(Instant when, Callback callback) = 0;

  /// Forgets a timer. One that already ran, or was never given out, is ignored.
  virtual void cancel(TimerId timer) = 0;
};
}  // namespace orvane
