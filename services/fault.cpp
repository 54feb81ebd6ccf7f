#include "services/fault.h"
#include <algorithm>
#include <array>
#include "services/number_text.h"

namespace orvane::services {
namespace {
struct Entry {
  FaultKind kind;
  std::string_view name;
};

constexpr std::array entries{
    Entry{FaultKind::status, "status"},     Entry{FaultKind::silence, "silence"},
    Entry{FaultKind::drop, "drop"},         Entry{FaultKind::hangUp, "hang-up"},
    Entry{FaultKind::garbage, "garbage"},   Entry{FaultKind::truncatedJson, "truncated-json"},
    Entry{FaultKind::redirect, "redirect"}, Entry{FaultKind::redirectWithin, "redirect-within"},
    Entry{FaultKind::slow, "slow"},         Entry{FaultKind::huge, "huge"},
    Entry{FaultKind::delay, "delay"},       Entry{FaultKind::tipLag, "tip-lag"},
    Entry{FaultKind::refuse, "refuse"},
};

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
std::string lowerHeight(const std::string& text, std::int64_t blocks) {
  const auto height = numberFrom<std::int64_t>(text);
  return height ? std::to_string(*height - blocks) : text;
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
}  // namespace

std::string_view faultName(FaultKind kind) {
  return std::ranges::find(entries, kind, &Entry::kind)->name;
}

std::optional<FaultKind> faultNamed(std::string_view name) {
  const auto found = std::ranges::find(entries, name, &Entry::name);
  if (found == entries.end()) { return std::nullopt; }
  return found->kind;
}

void FaultBook::add(Fault fault) {
  const std::lock_guard lock(mutex_);
  faults_.push_back(std::move(fault));
}

void FaultBook::clear() {
  const std::lock_guard lock(mutex_);
  faults_.clear();
}

std::optional<Fault> FaultBook::take(Service service, std::string_view target) {
  const std::lock_guard lock(mutex_);
  const auto found = std::ranges::find_if(faults_, [&](const Fault& fault) {
    return fault.service == service && target.contains(fault.path) && fault.count != 0;
  });
  if (found == faults_.end()) { return std::nullopt; }
  if (found->count) { --*found->count; }
  return *found;
}

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
      right.body = lowerHeight(right.body, fault.blocks);
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

Outcome sendFaulty(Connection& connection, const Request& request, const Response& response,
                   const Fault& fault) {
  if (!connection.pause(fault.delay)) { return Outcome::cut; }
  switch (fault.kind) {
    case FaultKind::silence:
      connection.waitUntilGone();
      return Outcome::cut;
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
      return sendAnswer(connection, request, response);
  }
  return Outcome::cut;
}
}  // namespace orvane::services
