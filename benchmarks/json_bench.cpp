// What our own tree costs, beside the bare tree of nlohmann-json.

#include <string>
#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include "documents.h"
#include "platform/json/json_document.h"

namespace orvane::bench { namespace {

std::string workers() { return workersDocument(workerTotal); }
std::string rewards() { return rewardsDocument(daysOfTwentyYears); }
std::string transactions() { return transactionsDocument(50, 200, watchedAddress); }

void reportBytes(benchmark::State& state, const std::string& text) {
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) *
                          static_cast<std::int64_t>(state.iterations()));
}

void libraryTree(benchmark::State& state, std::string (*document)()) {
  const std::string text = document();
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(nlohmann::json::parse(text, nullptr, false));
  }
  reportBytes(state, text);
}

void ourDocument(benchmark::State& state, std::string (*document)()) {
  const std::string text = document();
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(JsonDocument::parse(text));
  }
  reportBytes(state, text);
}

BENCHMARK_CAPTURE(libraryTree, workers, workers)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ourDocument, workers, workers)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(libraryTree, rewards, rewards)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ourDocument, rewards, rewards)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(libraryTree, transactions, transactions)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ourDocument, transactions, transactions)->Unit(benchmark::kMillisecond);

}}  // namespace orvane::bench
