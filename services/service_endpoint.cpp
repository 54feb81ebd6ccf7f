#include "services/service_endpoint.h"

#include <utility>

#include "services/faults/faulty_answer.h"

namespace orvane::services {
namespace {

bool isMoved(const Request& request) { return request.target.starts_with(movedPrefix); }

}  // namespace

ServiceEndpoint::ServiceEndpoint(Service service, std::uint16_t port, TlsContext tls, Answer answer,
                                 Surroundings surroundings)
    : service_(service),
      answer_(std::move(answer)),
      surroundings_(std::move(surroundings)),
      server_(port, std::move(tls), [this](const Request& request, Connection& connection) {
        return handle(request, connection);
      }) {}

Response ServiceEndpoint::rightAnswer(const Request& request) const {
  if (request.method != "GET") { return textResponse(405, "Only GET is answered here"); }
  if (!isMoved(request)) { return answer_(request); }
  Request original = request;
  original.target.erase(0, movedPrefix.size());
  return answer_(original);
}

Outcome ServiceEndpoint::handle(const Request& request, Connection& connection) {
  const bool keepAlive = wantsKeepAlive(request);
  Response response = rightAnswer(request);
  // Where a redirect led is beyond faults, or a redirect that hits every request would never end.
  const std::optional<Fault> fault =
      isMoved(request) ? std::nullopt : surroundings_.faults.take(service_, request.target);
  if (!fault) {
    surroundings_.log.add(service_, request, response.status, {});
    if (!connection.send(response, keepAlive)) { return Outcome::cut; }
    return keepAlive ? Outcome::keep : Outcome::finish;
  }
  response = spoiled(std::move(response), request, *fault, surroundings_.elsewhere);
  surroundings_.log.add(service_, request, sendsStatus(fault->kind) ? response.status : 0,
                        std::string(faultName(fault->kind)));
  return sendFaulty(connection, response, *fault, keepAlive);
}

}  // namespace orvane::services
