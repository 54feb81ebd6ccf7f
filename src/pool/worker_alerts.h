#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>
#include "pool/account.h"

namespace orvane {
/// What happened to a worker that its owner wants to know.
struct WorkerAlert {
  enum class Kind { off, low, back };

  Kind kind;
  BraiinsWorkerStatus worker;  ///< as it was last listed

  bool operator==(const WorkerAlert&) const = default;
};

/// The alerts that go into one message: one of them or, when several came at once, at least three.
struct WorkerMessage {
  std::string identifier;  ///< the message takes the place of an earlier one of the same identifier
  std::vector<WorkerAlert> alerts;

  bool operator==(const WorkerMessage&) const = default;
};

/// What the lists so far have said of a worker.
struct WatchedWorker {
  BraiinsWorkerStatus listed;  ///< as it was last listed
  /// What the worker is taken for: ok, low or off; unknown until a list has said one of them.
  BraiinsWorkerStatus::State settled = BraiinsWorkerStatus::State::unknown;
  BraiinsWorkerStatus::State seen = BraiinsWorkerStatus::State::unknown;  ///< in the last list
  int lists = 0;        ///< how many lists in a row have said so
  std::string message;  ///< the identifier of the one that told of its trouble; empty: none does

  bool operator==(const WatchedWorker&) const = default;
};

/// By full name.
using WatchedWorkers = std::map<std::string, WatchedWorker>;

struct WorkerNews {
  WatchedWorkers workers;               ///< to be handed to the next call
  std::vector<WorkerMessage> messages;  ///< in the order of the alerts' names
};

/// Takes in the list of one more cycle. A worker is off after two lists without it or with it off,
/// low after three, and back after two with it OK; what comes and goes sooner is not told, nor is
/// what a worker's first list says of it. A worker that the user has disabled is forgotten. An
/// empty list says nothing. A worker's recovery takes the place of the message of its trouble, once
/// that message tells of nobody else who is still in it.
[[nodiscard]] WorkerNews reduce(WatchedWorkers workers, std::span<const BraiinsWorkerStatus> list);
}  // namespace orvane
