// From the explorer's list of transactions to the summary, beside the bare parse of the same text
// by the library whose parser feeds our tree.

#include <string>
#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include "address/address_summary.h"
#include "address/explorer_documents.h"
#include "documents.h"

namespace orvane::bench { namespace {

constexpr std::size_t transactions = 10'000;
constexpr std::size_t outputsEach = 100;
const std::string watchedAddress = "bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq";

const std::string& document() {
  static const std::string text = transactionsDocument(transactions, outputsEach, watchedAddress);
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
    const auto summary = buildSummary({}, list.value(), 920'000, watchedAddress);
    if (summary.value().incoming.size() != transactions) {
      state.SkipWithError("the summary does not list every transaction");
      break;
    }
  }
}

BENCHMARK(libraryTree)->Name("libraryTree/transactions")->Unit(benchmark::kMillisecond);
BENCHMARK(decodeAndBuildSummary)
    ->Name("decodeAndBuildSummary/transactions")
    ->Unit(benchmark::kMillisecond);

}}  // namespace orvane::bench
