#pragma once

#include "services/scenario/scenario_chain.h"
#include "services/server/http_message.h"

namespace orvane::services {

/// The block explorer's API over the chain as it stands. An address without any transaction has
/// an empty history; one that cannot be an address is refused with 400.
[[nodiscard]] Response explorerAnswer(const Request& request, const Chain& chain);

}  // namespace orvane::services
