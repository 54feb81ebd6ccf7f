#pragma once

#include <optional>

#include "platform/async/executor.h"

namespace orvane {

/// A kernel timer on the clock that goes on counting while the machine is suspended.
class BootTimer {
 public:
  /// Throws std::system_error when the process has no file descriptor left.
  BootTimer();
  ~BootTimer();
  BootTimer(const BootTimer&) = delete;
  BootTimer& operator=(const BootTimer&) = delete;

  [[nodiscard]] static Instant now();

  /// Readable from the set moment on, until it is set anew.
  [[nodiscard]] int descriptor() const { return descriptor_; }

  /// Replaces the moment; nothing: never. A moment in the past makes it readable at once.
  void set(std::optional<Instant> when);

 private:
  int descriptor_;
};

}  // namespace orvane
