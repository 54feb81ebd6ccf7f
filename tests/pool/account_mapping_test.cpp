#include <string>
#include <string_view>

#include <gmock/gmock.h>

#include "pool/account.h"
#include "pool/pool_documents.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using State = BraiinsWorkerStatus::State;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<BraiinsWorkerStatus> workersOf(std::string_view body) {
  std::optional<BraiinsWorkersResponse> response = decodeWorkers(body);
  if (!response) {
    ADD_FAILURE() << "not a workers document: " << body;
    return {};
  }
  return workerStatuses(std::move(*response));
}

/// The workers of a document with these members, by name.
std::vector<std::string> namesOf(const std::string& workers) {
  std::vector<std::string> names;
  for (const BraiinsWorkerStatus& worker : workersOf(R"({"btc":{"workers":{)" + workers + "}}}")) {
    names.push_back(worker.fullName);
  }
  return names;
}

TEST(AccountMappingTest, ScalesAWorkerByItsOwnUnit) {
  const std::vector<BraiinsWorkerStatus> workers = workersOf(
      R"({"btc":{"workers":{"pellam.mac":{"state":"low","last_share":1700000000,)"
      R"("hash_rate_unit":"Th/s","hash_rate_5m":1,"hash_rate_60m":2.5,"hash_rate_24h":3}}}})");
  const BraiinsWorkerStatus expected{.fullName = "pellam.mac",
                                     .state = State::low,
                                     .hashRate5m = 1e12,
                                     .hashRate60m = 2.5e12,
                                     .hashRate24h = 3e12,
                                     .lastShare = std::chrono::sys_seconds(1'700'000'000s)};
  EXPECT_THAT(workers, ElementsAre(expected));
}

TEST(AccountMappingTest, AWorkerWithoutFiguresHasDefaults) {
  EXPECT_THAT(workersOf(R"({"btc":{"workers":{"a":{}}}})"),
              ElementsAre(BraiinsWorkerStatus{.fullName = "a"}));
  EXPECT_EQ(workersOf(R"({"btc":{"workers":{"a":{"hash_rate_5m":7}}}})").at(0).hashRate5m, 7);
}

TEST(AccountMappingTest, MatchesStatesExactly) {
  const std::vector<std::pair<std::string, State>> cases{
      {"ok", State::ok},        {"low", State::low},         {"off", State::off},
      {"dis", State::disabled}, {"unknown", State::unknown}, {"disabled", State::unknown},
      {"OK", State::unknown},   {"Ok", State::unknown},      {" ok", State::unknown},
      {"", State::unknown},
  };
  for (const auto& [text, state] : cases) {
    const auto workers = workersOf(R"({"btc":{"workers":{"a":{"state":")" + text + R"("}}}})");
    EXPECT_EQ(workers.at(0).state, state) << text;
  }
}

TEST(AccountMappingTest, ReadsTheBitcoinEntryOrElseAnyOther) {
  EXPECT_THAT(workersOf("{}"), IsEmpty());
  EXPECT_THAT(workersOf(R"({"btc":{"workers":{}},"group1":{"workers":{"a":{}}}})"), IsEmpty());
  EXPECT_EQ(workersOf(R"({"group1":{"workers":{"a":{}}}})").at(0).fullName, "a");
  EXPECT_EQ(workersOf(R"({"aaa":{"workers":{}},"btc":{"workers":{"b":{}}}})").at(0).fullName, "b");
}

TEST(AccountMappingTest, OrdersByTheLastFiveMinutesAfterScaling) {
  EXPECT_THAT(namesOf(R"("a":{"hash_rate_unit":"Gh/s","hash_rate_5m":900,"hash_rate_24h":900},)"
                      R"("b":{"hash_rate_unit":"Th/s","hash_rate_5m":1},)"
                      R"("c":{"hash_rate_5m":2000})"),
              ElementsAre("b", "a", "c"));
}

TEST(AccountMappingTest, OrdersEqualsByCodePointsAfterNormalization) {
  EXPECT_THAT(namesOf(R"("a":{},"B":{},"b":{},"ab":{})"), ElementsAre("B", "a", "ab", "b"));
  // U+00E9 as two code points: as such it would come before "eu", normalized it comes behind "f".
  EXPECT_THAT(namesOf("\"e\u0301\":{},\"f\":{},\"eu\":{}"), ElementsAre("eu", "f", "e\u0301"));
  // In UTF-16 the emoji, a pair of surrogates, would come first.
  EXPECT_THAT(namesOf("\"\U0001F600\":{},\"\uFF21\":{}"), ElementsAre("\uFF21", "\U0001F600"));
  EXPECT_THAT(namesOf("\"\u00E9\":{},\"e\u0301\":{}"), ElementsAre("e\u0301", "\u00E9"));
}

}  // namespace
}  // namespace orvane::test
