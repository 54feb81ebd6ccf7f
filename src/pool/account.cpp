#include "pool/account.h"
#include <algorithm>
#include <array>
#include <deque>
#include <tuple>
#include <utility>
#include "platform/text/unicode.h"

namespace orvane {
namespace {
using State = BraiinsWorkerStatus::State;

struct StateText {
  std::string_view text;
  State state;
};

constexpr std::array stateTexts{
    StateText{.text = "ok", .state = State::ok},
    StateText{.text = "low", .state = State::low},
    StateText{.text = "off", .state = State::off},
    StateText{.text = "dis", .state = State::disabled},
    StateText{.text = "unknown", .state = State::unknown},
};

State workerState(std::string_view text) {
  const auto* const found = std::ranges::find(stateTexts, text, &StateText::text);
  return found == stateTexts.end() ? State::unknown : found->state;
}

BraiinsWorkerStatus workerStatus(std::string fullName,
                                 const BraiinsWorkersResponse::Worker& worker) {
  const double factor = worker.hashRateUnit ? hashRateUnitFactor(*worker.hashRateUnit) : 1;
  BraiinsWorkerStatus status{
      .fullName = std::move(fullName),
      .state = worker.state ? workerState(*worker.state) : State::unknown,
      .hashRate5m = factor * worker.hashRate5m.value_or(0),
      .hashRate60m = factor * worker.hashRate60m.value_or(0),
      .hashRate24h = factor * worker.hashRate24h.value_or(0),
  };
  if (worker.lastShare) {
    status.lastShare = std::chrono::sys_seconds(std::chrono::seconds(*worker.lastShare));
  }
  return status;
}

/// What a worker is ranked by, beside the worker itself, so that comparing needs nothing else of
/// it.
struct RankedWorker {
  double hashRate5m;
  std::string_view comparedName;  ///< in the form that names are compared in
  BraiinsWorkerStatus* worker;
};

// Names that differ only in their normalization are told apart by their bytes, so that a list
// never depends on the order it came in.
bool ranksBefore(const RankedWorker& a, const RankedWorker& b) {
  return std::tie(b.hashRate5m, a.comparedName, a.worker->fullName) <
         std::tie(a.hashRate5m, b.comparedName, b.worker->fullName);
}
}  // namespace

std::string_view shortWorkerName(std::string_view fullName) {
  const auto dot = fullName.find('.');
  if (dot == std::string_view::npos || dot + 1 == fullName.size()) { return fullName; }
  return fullName.substr(dot + 1);
}

BraiinsAccountStats accountStats(const BraiinsProfileResponse& response) {
  const BraiinsProfileResponse::Profile& profile = response.btc;
  return {.hashRate60m = profile.hashRate60m * hashRateUnitFactor(profile.hashRateUnit),
          .shares24h = sharesFromPoolFigure(profile.shares24h),
          .todayRewardSats = satsFromBTCText(profile.todayReward),
          .balanceSats = satsFromBTCText(profile.currentBalance)};
}

std::vector<BraiinsWorkerStatus> workerStatuses(BraiinsWorkersResponse response) {
  BraiinsWorkersResponse::BTC entry = currencyEntry(std::move(response.values));
  std::vector<BraiinsWorkerStatus> workers;
  workers.reserve(entry.workers.size());
  for (auto& [name, worker] : entry.workers) {
    workers.push_back(workerStatus(std::move(name), worker));
  }
  return workerOrder(std::move(workers));
}

std::vector<BraiinsWorkerStatus> workerOrder(std::vector<BraiinsWorkerStatus> workers) {
  std::deque<std::string> normalizedNames;  // of those that are not ASCII
  std::vector<RankedWorker> ranked;
  ranked.reserve(workers.size());
  for (BraiinsWorkerStatus& worker : workers) {
    std::string_view name = worker.fullName;
    if (!isAscii(name)) { name = normalizedNames.emplace_back(nfcNormalized(name)); }
    ranked.push_back({.hashRate5m = worker.hashRate5m, .comparedName = name, .worker = &worker});
  }
  std::ranges::sort(ranked, ranksBefore);
  std::vector<BraiinsWorkerStatus> ordered;
  ordered.reserve(workers.size());
  for (const RankedWorker& entry : ranked) {
    ordered.push_back(std::move(*entry.worker));
  }
  return ordered;
}
}  // namespace orvane
