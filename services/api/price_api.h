#pragma once

#include "services/scenario/scenario_clock.h"
#include "services/server/http_message.h"

namespace orvane::services {

/// The primary price source: numbers in euro and dollar.
[[nodiscard]] Response priceAnswer(const Request& request, const Moment& moment);

/// The fallback price source: exchange rates of many currencies, as texts.
[[nodiscard]] Response fallbackPriceAnswer(const Request& request, const Moment& moment);

}  // namespace orvane::services
