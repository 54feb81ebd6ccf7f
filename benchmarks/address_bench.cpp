// From the explorer's list of transactions to the summary, beside the bare trees of two libraries.

#include <string>
#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <simdjson.h>
#include "address/address_summary.h"
#include "address/explorer_documents.h"
#include "documents.h"

namespace orvane::bench { namespace {

const std::string& document() {
  static const std::string text =
      transactionsDocument(transactionTotal, outputsOfTransaction, watchedAddress);
  return text;
}

void libraryTree(benchmark::State& state) {
  const std::string& text = document();
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(nlohmann::json::parse(text, nullptr, false));
  }
}

void decodeAndBuildSummary(benchmark::State& state) {
  const std::string& text = document();
  for ([[maybe_unused]] auto _ : state) {
    const auto list = decodeTransactions(text);
    const auto summary = buildSummary({}, list.value(), 920'000, std::string(watchedAddress));
    if (summary.value().incoming.size() != transactionTotal) {
      state.SkipWithError("the summary does not list every transaction");
      break;
    }
  }
}

void simdjsonTree(benchmark::State& state) {
  const simdjson::padded_string text(document());
  for ([[maybe_unused]] auto _ : state) {
    simdjson::dom::parser parser;
    benchmark::DoNotOptimize(parser.parse(text).error());
  }
}
BENCHMARK(libraryTree)->Name("libraryTree/transactions")->Unit(benchmark::kMillisecond);
BENCHMARK(simdjsonTree)->Name("simdjson/transactions")->Unit(benchmark::kMillisecond);
BENCHMARK(decodeAndBuildSummary)->Name("decodeAndMap/transactions")->Unit(benchmark::kMillisecond);

}}  // namespace orvane::bench
