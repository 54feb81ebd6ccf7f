#include "core/worker_notifications.h"
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include "core/display_texts.h"
#include "platform/text/unicode.h"

namespace orvane {
namespace {
using Kind = WorkerAlert::Kind;
using State = BraiinsWorkerStatus::State;

/// Those who were told of and are not back: three texts a worker, its state, the identifier of the
/// message and its full name.
constexpr std::string_view toldKey = "balance.workersToldOf";
constexpr std::size_t textsPerWorker = 3;
constexpr std::string_view rawOff = "off";
constexpr std::string_view rawLow = "low";

/// A notification is read at a glance; beyond this the rest is a number.
constexpr std::size_t mostNames = 40;

constexpr std::array kinds{Kind::off, Kind::low, Kind::back};

const char* wordOf(Kind kind) {
  switch (kind) {
    case Kind::off:
      return "off";
    case Kind::low:
      return "low";
    case Kind::back:
      return "back";
  }
  return "";
}

std::vector<std::string> toldTexts(const WatchedWorkers& workers) {
  std::vector<std::string> texts;
  for (const auto& [name, worker] : workers) {
    if (worker.message.empty()) { continue; }
    texts.emplace_back(worker.settled == State::low ? rawLow : rawOff);
    texts.push_back(worker.message);
    texts.push_back(name);
  }
  return texts;
}

WatchedWorkers workersToldOf(const UserDefaults& defaults) {
  const auto texts = defaults.texts(toldKey).value_or(std::vector<std::string>());
  WatchedWorkers workers;
  for (std::size_t i = 0; i + textsPerWorker <= texts.size(); i += textsPerWorker) {
    const std::string& name = texts[i + 2];
    workers[name] = {.listed = {.fullName = name},
                     .settled = texts[i] == rawLow ? State::low : State::off,
                     .message = texts[i + 1]};
  }
  return workers;
}

/// "mac, garage and 3 more".
std::string namesOf(const std::vector<WorkerAlert>& alerts, std::optional<Kind> wanted) {
  std::vector<std::string> names;
  for (const WorkerAlert& alert : alerts) {
    if (!wanted || alert.kind == *wanted) {
      names.push_back(controlsMarked(shortWorkerName(alert.worker.fullName)));
    }
  }
  const std::size_t more = names.size() - std::min(names.size(), mostNames);
  names.resize(names.size() - more);
  std::string text = fmt::format("{}", fmt::join(names, ", "));
  if (more > 0) { text += fmt::format(" and {} more", more); }
  return text;
}
}  // namespace

WorkerNotifications::WorkerNotifications(const BalancePlatform& platform, bool isOn)
    : defaults_(platform.defaults),
      center_(platform.notifications),
      format_(platform.format),
      posting_(platform.executor) {
  if (isOn) { workers_ = workersToldOf(defaults_); }
}

void WorkerNotifications::setOn(bool isOn, std::span<const BraiinsWorkerStatus> workers) {
  if (isOn == workers_.has_value()) { return; }
  if (isOn) {
    workers_ = reduce({}, workers).workers;
  } else {
    use({});
    workers_.reset();
  }
}

void WorkerNotifications::forgetWorkers() {
  if (workers_) { use({}); }
}

void WorkerNotifications::noticeWorkers(std::span<const BraiinsWorkerStatus> workers) {
  if (!workers_) { return; }
  WorkerNews news = reduce(*std::move(workers_), workers);
  // Kept before it is told: what was told must not be told again.
  use(std::move(news.workers));
  if (news.messages.empty()) { return; }
  std::vector<NotificationRequest> requests;
  requests.reserve(news.messages.size());
  for (WorkerMessage& message : news.messages) {
    requests.push_back(makeNotificationRequest(std::move(message)));
  }
  posting_.spawn(postInOrder(center_, std::move(requests)));
}

void WorkerNotifications::use(WatchedWorkers workers) {
  workers_ = std::move(workers);
  const std::vector<std::string> told = toldTexts(*workers_);
  if (told == defaults_.texts(toldKey).value_or(std::vector<std::string>())) { return; }
  if (told.empty()) {
    defaults_.remove(toldKey);
  } else {
    defaults_.setTexts(toldKey, told);
  }
}

NotificationRequest WorkerNotifications::makeNotificationRequest(WorkerMessage message) const {
  const std::vector<WorkerAlert>& alerts = message.alerts;
  const Kind kind = alerts[0].kind;
  NotificationRequest request{.identifier = std::move(message.identifier), .title = {}, .body = {}};
  if (alerts.size() == 1) {
    request.title = fmt::format("Worker {}", wordOf(kind));
    request.body = bodyOf(alerts[0]);
    return request;
  }
  const bool isOfOneKind =
      std::ranges::all_of(alerts, [kind](const WorkerAlert& alert) { return alert.kind == kind; });
  if (isOfOneKind) {
    request.title = fmt::format("{} workers {}", format_.integer(std::ssize(alerts)), wordOf(kind));
    request.body = namesOf(alerts, std::nullopt);
    return request;
  }
  request.title = fmt::format("{} workers changed", format_.integer(std::ssize(alerts)));
  for (const Kind each : kinds) {
    const std::string names = namesOf(alerts, each);
    if (names.empty()) { continue; }
    if (!request.body.empty()) { request.body += '\n'; }
    request.body += fmt::format("Now {}: {}", wordOf(each), names);
  }
  return request;
}

std::string WorkerNotifications::bodyOf(const WorkerAlert& alert) const {
  const std::string name = controlsMarked(shortWorkerName(alert.worker.fullName));
  switch (alert.kind) {
    case Kind::off: {
      const std::string lastShare = lastShareText(format_, alert.worker.lastShare);
      return lastShare.empty() ? fmt::format("{} has stopped.", name)
                               : fmt::format("{} has stopped. {}.", name, lastShare);
    }
    case Kind::low:
      return fmt::format("{} has slowed down: {} over 60 minutes, {} over 24 hours.", name,
                         hashRateText(alert.worker.hashRate60m),
                         hashRateText(alert.worker.hashRate24h));
    case Kind::back:
      return fmt::format("{} is OK again.", name);
  }
  return {};
}
}  // namespace orvane
