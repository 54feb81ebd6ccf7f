#pragma once

#include <string>

#include "services/faults/fault.h"
#include "services/server/http_server.h"

namespace orvane::services {

/// The path in front of the right one that `FaultKind::redirectWithin` sends clients to.
inline constexpr std::string_view movedPrefix = "/moved";

/// What `fault` makes of the right answer where that is an answer of another content. Faults of
/// the connection leave it as it is. `elsewhere` is the origin that `redirect` points at.
[[nodiscard]] Response spoiled(Response right, const Request& request, const Fault& fault,
                               const std::string& elsewhere);

/// Whether the client ever gets a status line.
[[nodiscard]] bool sendsStatus(FaultKind kind);

/// Sends the answer the way the fault has it; returns when the client has all it will get.
[[nodiscard]] Outcome sendFaulty(Connection& connection, const Response& response,
                                 const Fault& fault, bool keepAlive);

}  // namespace orvane::services
