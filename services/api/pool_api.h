#pragma once

#include <optional>
#include <string>

#include "services/scenario/scenario_clock.h"
#include "services/server/http_message.h"

namespace orvane::services {

/// The pool account API at one moment. Without a token to expect it asks for none.
[[nodiscard]] Response poolAnswer(const Request& request, const Moment& moment,
                                  const std::optional<std::string>& token);

}  // namespace orvane::services
