#include "services/faults/faulty_answer.h"

#include <utility>

#include "services/number_text.h"

namespace orvane::services {
namespace {

constexpr std::size_t endlessBlock = 65'536;

Response redirectTo(std::string location) {
  return {.status = 302,
          .contentType = "text/html",
          .headers = {{"Location", std::move(location)}},
          .body = "<html><body>Moved</body></html>"};
}

Response withStatus(int status) {
  return {.status = status, .body = status == 204 ? "" : R"({"error": "a fault on demand"})"};
}

/// A text that is a height, lowered; any other document is left alone.
std::string lowerHeight(std::string text, std::int64_t blocks) {
  const auto height = numberFrom<std::int64_t>(text);
  return height ? std::to_string(*height - blocks) : text;
}

Outcome kept(bool sent, bool keepAlive) {
  if (!sent) { return Outcome::cut; }
  return keepAlive ? Outcome::keep : Outcome::finish;
}

Outcome sendHalf(Connection& connection, const Response& response) {
  const bool sent = connection.write(responseHead(response, response.body.size(), true) +
                                     response.body.substr(0, response.body.size() / 2));
  static_cast<void>(sent);
  return Outcome::cut;
}

Outcome trickle(Connection& connection, const Response& response,
                std::chrono::milliseconds interval) {
  if (!connection.write(responseHead(response, response.body.size(), false))) {
    return Outcome::cut;
  }
  for (const char& byte : response.body) {
    if (!connection.pause(interval) || !connection.write({&byte, 1})) { return Outcome::cut; }
  }
  return Outcome::finish;
}

Outcome sendWithoutEnd(Connection& connection, const Response& response) {
  if (!connection.write(responseHead(response, std::nullopt, false) + "[\"")) {
    return Outcome::cut;
  }
  const std::string block(endlessBlock, 'a');
  while (connection.write(block)) {}
  return Outcome::cut;
}

Outcome staySilent(const Connection& connection) {
  connection.waitUntilGone();
  return Outcome::cut;
}

}  // namespace

Response spoiled(Response right, const Request& request, const Fault& fault,
                 const std::string& elsewhere) {
  switch (fault.kind) {
    case FaultKind::status:
      return withStatus(fault.status);
    case FaultKind::garbage:
      right.body = "<html><body>This is not the page that was asked for</body></html>";
      break;
    case FaultKind::truncatedJson:
      right.body.resize(right.body.size() / 2);
      break;
    case FaultKind::redirect:
      return redirectTo("https://" + elsewhere + request.target);
    case FaultKind::redirectWithin:
      return redirectTo(std::string(movedPrefix) + request.target);
    case FaultKind::tipLag:
      right.body = lowerHeight(std::move(right.body), fault.blocks);
      break;
    case FaultKind::silence:
    case FaultKind::drop:
    case FaultKind::hangUp:
    case FaultKind::slow:
    case FaultKind::huge:
    case FaultKind::delay:
    case FaultKind::refuse:
      break;
  }
  return right;
}

bool sendsStatus(FaultKind kind) {
  return kind != FaultKind::silence && kind != FaultKind::hangUp && kind != FaultKind::refuse;
}

Outcome sendFaulty(Connection& connection, const Response& response, const Fault& fault,
                   bool keepAlive) {
  if (!connection.pause(fault.delay)) { return Outcome::cut; }
  switch (fault.kind) {
    case FaultKind::silence:
      return staySilent(connection);
    case FaultKind::drop:
      return sendHalf(connection, response);
    case FaultKind::slow:
      return trickle(connection, response, fault.interval);
    case FaultKind::huge:
      return sendWithoutEnd(connection, response);
    case FaultKind::hangUp:
    case FaultKind::refuse:
      return Outcome::cut;
    case FaultKind::status:
    case FaultKind::garbage:
    case FaultKind::truncatedJson:
    case FaultKind::redirect:
    case FaultKind::redirectWithin:
    case FaultKind::delay:
    case FaultKind::tipLag:
      return kept(connection.send(response, keepAlive), keepAlive);
  }
  return Outcome::cut;
}

}  // namespace orvane::services
