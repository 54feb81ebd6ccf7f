// What it costs to get from the pool's answers to the records that the program shows, beside the
// bare tree that the JSON library makes of the same bytes.

#include <string>
#include <utility>
#include <vector>
#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include "documents.h"
#include "pool/account.h"
#include "pool/history.h"
#include "pool/pool_documents.h"

namespace orvane::bench { namespace {

using Bodies = std::vector<std::string>;

Bodies workers() { return {workersDocument(10'000)}; }

Bodies history() {
  return {rewardsDocument(daysOfTenYears), dailyHashrateDocument(daysOfTenYears)};
}

Bodies storedHistory() {
  const Bodies documents = history();
  return {encodeHistory(buildHistoryDays(documents[0], documents[1]).value()).value()};
}

void libraryTree(benchmark::State& state, Bodies (*documents)()) {
  const Bodies bodies = documents();
  for ([[maybe_unused]] auto _ : state) {
    for (const std::string& body : bodies) {
      benchmark::DoNotOptimize(nlohmann::json::parse(body, nullptr, false));
    }
  }
}

void decodeAndMap(benchmark::State& state, Bodies (*documents)(), bool (*decode)(const Bodies&)) {
  const Bodies bodies = documents();
  for ([[maybe_unused]] auto _ : state) {
    if (!decode(bodies)) {
      state.SkipWithError("the documents do not decode");
      break;
    }
  }
}

bool decodeWorkerList(const Bodies& bodies) {
  std::optional<BraiinsWorkersResponse> response = decodeWorkers(bodies[0]);
  return response && workerStatuses(std::move(*response)).size() == 10'000;
}

bool buildHistory(const Bodies& bodies) {
  const auto days = buildHistoryDays(bodies[0], bodies[1]);
  return days && days->size() == daysOfTenYears;
}

bool readStoredHistory(const Bodies& bodies) {
  const auto days = decodeHistory(bodies[0]);
  return days && days->size() == daysOfTenYears;
}

BENCHMARK_CAPTURE(libraryTree, workers, workers)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decodeAndMap, workers, workers, decodeWorkerList)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(libraryTree, history, history)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decodeAndMap, history, history, buildHistory)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(libraryTree, stored_history, storedHistory)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decodeAndMap, stored_history, storedHistory, readStoredHistory)
    ->Unit(benchmark::kMillisecond);

}}  // namespace orvane::bench
