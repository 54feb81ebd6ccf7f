// What it costs to get from the pool's answers to the records that the program shows, beside the
// bare trees that two JSON libraries make of the same bytes.

#include <string>
#include <utility>
#include <vector>
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <nlohmann/json.hpp>
#include <simdjson.h>
#include "documents.h"
#include "pool/account.h"
#include "pool/history.h"
#include "pool/pool_documents.h"

namespace orvane::bench { namespace {

using Bodies = std::vector<std::string>;

Bodies profile() { return {profileDocument()}; }

Bodies workers() { return {workersDocument(workerTotal)}; }

Bodies history() {
  return {rewardsDocument(daysOfTwentyYears), dailyHashrateDocument(daysOfTwentyYears)};
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

void simdjsonTree(benchmark::State& state, Bodies (*documents)()) {
  std::vector<simdjson::padded_string> bodies;
  for (const std::string& body : documents()) {
    bodies.emplace_back(body);
  }
  for ([[maybe_unused]] auto _ : state) {
    for (const simdjson::padded_string& body : bodies) {
      simdjson::dom::parser parser;
      benchmark::DoNotOptimize(parser.parse(body).error());
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

bool decodeAccount(const Bodies& bodies) {
  const auto response = decodeProfile(bodies[0]);
  return response && accountStats(*response).balanceSats > 0;
}

bool decodeWorkerList(const Bodies& bodies) {
  std::optional<BraiinsWorkersResponse> response = decodeWorkers(bodies[0]);
  return response && workerStatuses(std::move(*response)).size() == workerTotal;
}

bool buildHistory(const Bodies& bodies) {
  const auto days = buildHistoryDays(bodies[0], bodies[1]);
  return days && days->size() == daysOfTwentyYears;
}

bool readStoredHistory(const Bodies& bodies) {
  const auto days = decodeHistory(bodies[0]);
  return days && days->size() == daysOfTwentyYears;
}

/// In bytes, what the program has asked for and not given back.
double heapInUse() {
  const auto heap = mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd);
}

/// Time, and what the records take, by the number of workers. Each list comes in fresh memory: what
/// an allocator keeps of the one before helps small ones more.
void decodeAndMapMany(benchmark::State& state) {
  const auto total = static_cast<std::size_t>(state.range(0));
  const std::string body = workersDocument(total);
  std::vector<BraiinsWorkerStatus> workers;
  double before = 0;
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    workers = std::vector<BraiinsWorkerStatus>();
    malloc_trim(0);
    before = heapInUse();
    state.ResumeTiming();
    workers = workerStatuses(*decodeWorkers(body));
  }
  if (workers.size() != total) { state.SkipWithError("the document does not decode"); }
  state.counters["kB"] = (heapInUse() - before) / 1024;
}

BENCHMARK_CAPTURE(libraryTree, profile, profile);
BENCHMARK_CAPTURE(simdjsonTree, profile, profile)->Name("simdjson/profile");
BENCHMARK_CAPTURE(decodeAndMap, profile, profile, decodeAccount);
BENCHMARK_CAPTURE(libraryTree, workers, workers)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(simdjsonTree, workers, workers)->Name("simdjson/workers");
BENCHMARK_CAPTURE(decodeAndMap, workers, workers, decodeWorkerList)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(libraryTree, history, history)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(simdjsonTree, history, history)->Name("simdjson/history");
BENCHMARK_CAPTURE(decodeAndMap, history, history, buildHistory)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(libraryTree, stored_history, storedHistory)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decodeAndMap, stored_history, storedHistory, readStoredHistory)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(decodeAndMapMany)
    ->Name("many")
    ->RangeMultiplier(10)
    ->Range(10, 100'000)
    ->Unit(benchmark::kMillisecond);

}}  // namespace orvane::bench
