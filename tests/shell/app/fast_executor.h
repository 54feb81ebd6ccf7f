#pragma once

#include "platform/eventloop/qt_executor.h"

namespace orvane::test {
/// Qt's executor with a clock that runs faster than the wall's: waits of a minute take seconds.
/// Short waits take their real time: they are deadlines of work that is really done, by a keyring
/// or a server, and a busy machine would miss them otherwise.
class FastExecutor final : public Executor {
 public:
  explicit FastExecutor(int speed) : speed_(speed), start_(real_.now()) {}

  [[nodiscard]] Instant now() const override { return start_ + (real_.now() - start_) * speed_; }
  [[nodiscard]] WallTime wallClock() const override { return real_.wallClock(); }
  void post(Callback callback) override { real_.post(std::move(callback)); }
  TimerId schedule(Instant when, Callback callback) override {
    const auto wait = when - now();
    return real_.schedule(real_.now() + (wait > longestRealWait ? wait / speed_ : wait),
                          std::move(callback));
  }
  void cancel(TimerId timer) override { real_.cancel(timer); }

 private:
  static constexpr std::chrono::seconds longestRealWait{20};

  QtExecutor real_;
  int speed_;
  Instant start_;
};
}  // namespace orvane::test
