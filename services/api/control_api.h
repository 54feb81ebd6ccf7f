#pragma once

#include "services/server/http_message.h"

namespace orvane::services {

class LocalServices;

/// The control port: what a person or a script does to the services while they run. README.md
/// lists the requests. A request that is not understood is refused with 400 and a sentence.
[[nodiscard]] Response controlAnswer(const Request& request, LocalServices& services);

}  // namespace orvane::services
