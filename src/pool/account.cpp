#include "pool/account.h"
#include <algorithm>
#include <array>
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

/// A worker with its name in the form that names are compared in, made once and not in every
/// comparison.
struct RankedWorker {
  std::string comparedName;
  BraiinsWorkerStatus worker;
};

// Names that differ only in their normalization are told apart by their bytes, so that a list
// never depends on the order it came in.
bool ranksBefore(const RankedWorker& a, const RankedWorker& b) {
  return std::tie(b.worker.hashRate5m, a.comparedName, a.worker.fullName) <
         std::tie(a.worker.hashRate5m, b.comparedName, b.worker.fullName);
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
  const BraiinsWorkersResponse::BTC entry = currencyEntry(std::move(response.values));
  std::vector<BraiinsWorkerStatus> workers;
  workers.reserve(entry.workers.size());
  for (const auto& [fullName, worker] : entry.workers) {
    workers.push_back(workerStatus(fullName, worker));
  }
  return workerOrder(std::move(workers));
}

std::vector<BraiinsWorkerStatus> workerOrder(std::vector<BraiinsWorkerStatus> workers) {
  std::vector<RankedWorker> ranked;
  ranked.reserve(workers.size());
  for (BraiinsWorkerStatus& worker : workers) {
    std::string comparedName = nfcNormalized(worker.fullName);
    ranked.push_back({.comparedName = std::move(comparedName), .worker = std::move(worker)});
  }
  std::ranges::sort(ranked, ranksBefore);
  std::ranges::transform(ranked, workers.begin(),
                         [](RankedWorker& entry) { return std::move(entry.worker); });
  return workers;
}
}  // namespace orvane
