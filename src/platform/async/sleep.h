#pragma once

#include "platform/async/executor.h"
#include "platform/async/task.h"

namespace orvane {

/// Why a sleep is over: its moment has come, or the sleeping task was cancelled before.
enum class SleepEnd { elapsed, cancelled };

/// Suspends the task until `when`; a moment that has passed does not suspend it.
[[nodiscard]] Task<SleepEnd> sleepUntil(Instant when);

/// Suspends the task for `duration`, counted from now.
[[nodiscard]] Task<SleepEnd> sleepFor(ExecutorClock::duration duration);

}  // namespace orvane
