#include "pool/worker_alerts.h"
#include <algorithm>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

namespace orvane {
namespace {
using State = BraiinsWorkerStatus::State;

/// So many alerts at once are one message: a power cut is one piece of news.
constexpr std::size_t mostSingleMessages = 2;

int listsUntilSettled(State state) { return state == State::low ? 3 : 2; }

WorkerAlert::Kind alertKind(State settled) {
  switch (settled) {
    case State::off:
      return WorkerAlert::Kind::off;
    case State::low:
      return WorkerAlert::Kind::low;
    case State::ok:
    case State::disabled:
    case State::unknown:
      return WorkerAlert::Kind::back;
  }
  return WorkerAlert::Kind::back;
}

/// Returns the kind of alert that is due because the worker was seen in `state`.
std::optional<WorkerAlert::Kind> observe(WatchedWorker& worker, State state) {
  worker.lists = worker.seen == state ? std::min(worker.lists + 1, listsUntilSettled(state)) : 1;
  worker.seen = state;
  if (state == State::unknown || state == worker.settled) { return std::nullopt; }
  const bool isFirst = worker.settled == State::unknown;
  if (!isFirst && worker.lists < listsUntilSettled(state)) { return std::nullopt; }
  worker.settled = state;
  // Whose trouble was not told needs no word of its end.
  if (isFirst || (state == State::ok && worker.message.empty())) { return std::nullopt; }
  return alertKind(state);
}

bool isOfNoInterest(const WatchedWorker& missing) {
  const bool isTold = !missing.message.empty();
  return !isTold && missing.settled != State::ok && missing.settled != State::low;
}

/// Takes the list in, and gives the alerts that are due.
std::vector<WorkerAlert> observeAll(WatchedWorkers& workers,
                                    std::span<const BraiinsWorkerStatus> list) {
  std::set<std::string_view> present;
  std::vector<WorkerAlert> alerts;
  const auto look = [&alerts](WatchedWorker& worker, State state) {
    if (const auto kind = observe(worker, state)) {
      alerts.push_back({.kind = *kind, .worker = worker.listed});
    }
  };
  for (const BraiinsWorkerStatus& status : list) {
    if (status.state == State::disabled) {
      workers.erase(status.fullName);
      continue;
    }
    present.insert(status.fullName);
    WatchedWorker& worker = workers[status.fullName];
    worker.listed = status;
    look(worker, status.state);
  }
  std::erase_if(workers, [&present](const auto& entry) {
    return !present.contains(entry.first) && isOfNoInterest(entry.second);
  });
  for (auto& [name, worker] : workers) {
    if (!present.contains(name)) { look(worker, State::off); }
  }
  std::ranges::sort(alerts, {}, [](const WorkerAlert& alert) { return alert.worker.fullName; });
  return alerts;
}

bool isStanding(const WatchedWorkers& workers, const std::string& message) {
  return std::ranges::any_of(
      workers, [&message](const auto& entry) { return entry.second.message == message; });
}

/// One that no worker in trouble is told of by.
std::string freeGroupIdentifier(const WatchedWorkers& workers) {
  for (int number = 1;; ++number) {
    std::string identifier = "workers-" + std::to_string(number);
    if (!isStanding(workers, identifier)) { return identifier; }
  }
}

/// Makes a message of alerts that came together.
WorkerMessage makeMessage(WatchedWorkers& workers, std::vector<WorkerAlert> alerts) {
  std::set<std::string> before;
  bool allAreBack = true;
  for (const WorkerAlert& alert : alerts) {
    before.insert(std::exchange(workers.at(alert.worker.fullName).message, {}));
    allAreBack = allAreBack && alert.kind == WorkerAlert::Kind::back;
  }
  std::string identifier =
      alerts.size() == 1 ? "worker-" + alerts[0].worker.fullName : freeGroupIdentifier(workers);
  if (allAreBack) {
    const auto over = std::ranges::find_if(
        before, [&workers](const std::string& message) { return !isStanding(workers, message); });
    if (over != before.end()) { identifier = *over; }
  }
  for (const WorkerAlert& alert : alerts) {
    const bool isTrouble = alert.kind != WorkerAlert::Kind::back;
    if (isTrouble) { workers.at(alert.worker.fullName).message = identifier; }
  }
  return {.identifier = std::move(identifier), .alerts = std::move(alerts)};
}
}  // namespace

WorkerNews reduce(WatchedWorkers workers, std::span<const BraiinsWorkerStatus> list) {
  if (list.empty()) { return {.workers = std::move(workers), .messages = {}}; }
  std::vector<WorkerAlert> alerts = observeAll(workers, list);
  std::vector<WorkerMessage> messages;
  if (alerts.size() > mostSingleMessages) {
    messages.push_back(makeMessage(workers, std::move(alerts)));
  } else {
    for (WorkerAlert& alert : alerts) {
      messages.push_back(makeMessage(workers, {std::move(alert)}));
    }
  }
  return {.workers = std::move(workers), .messages = std::move(messages)};
}
}  // namespace orvane
