#pragma once

#include "platform/async/task.h"

namespace orvane {

inline constexpr auto secretServiceName = "org.freedesktop.secrets";

/// Whether the session bus has a Secret Service, or can start one. Asking the service itself
/// would wait for the bus's time-out when there is none.
[[nodiscard]] Task<bool> secretServiceIsPresent();

}  // namespace orvane
