#pragma once

#include "platform/async/task.h"

namespace orvane {

/// Whether a client's result is of no use any more, because the task that asked for it has been
/// cancelled: before the request ended, or between its end and now. Nothing of it is shown.
template <class Result>
[[nodiscard]] bool isCancelled(const TaskContext& context, const Result& result) {
  if (context.stop.stop_requested()) { return true; }
  return !result && result.error().kind == Result::error_type::Kind::cancelled;
}

}  // namespace orvane
