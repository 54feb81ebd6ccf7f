#include "pool/account.h"
#include <limits>
#include <gmock/gmock.h>
#include "support/document_members.h"

namespace orvane::test { namespace {

using State = BraiinsWorkerStatus::State;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

std::vector<BraiinsWorkerStatus> workersOf(std::string_view body) {
  return workerStatuses(decodeWorkers(body).value());
}

constexpr const char* oneWorker =
    R"({"btc":{"workers":{"pellam.mac":{"state":"low","last_share":1700000000,)"
    R"("hash_rate_unit":"Th/s","hash_rate_5m":1,"hash_rate_60m":2.5,"hash_rate_24h":3}}},)"
    R"("ltc":{"workers":{}}})";

TEST(AccountTest, ScalesAWorkerByItsOwnUnit) {
  const BraiinsWorkerStatus scaled{
      .fullName = "pellam.mac",
      .state = State::low,
      .hashRate5m = 1e12,
      .hashRate60m = 2.5e12,
      .hashRate24h = 3e12,
      .lastShare = std::chrono::sys_seconds(std::chrono::seconds(1'700'000'000))};
  EXPECT_THAT(workersOf(oneWorker), ElementsAre(scaled));
  EXPECT_THAT(workersOf(R"({"btc":{"workers":{"a":{"hash_rate_5m":7}}}})"),
              ElementsAre(BraiinsWorkerStatus{.fullName = "a", .hashRate5m = 7}));
}

TEST(PoolDocumentsTest, AProfileAndWorkersMatchAsAWhole) {
  using enum MemberType;
  expectMembers(decodeProfile,
                R"({"btc":{"hash_rate_unit":"Gh/s","hash_rate_60m":5.5,"shares_24h":1536,)"
                R"("today_reward":"0.1","current_balance":"0.2","all_time_reward":null}})",
                {{"hash_rate_unit", R"("Gh/s")", text},
                 {"hash_rate_60m", "5.5", number},
                 {"shares_24h", "1536", number},
                 {"today_reward", R"("0.1")", text},
                 {"current_balance", R"("0.2")", text}});
  expectMembers(decodeWorkers, oneWorker,
                {{"state", R"("low")", optionalText},
                 {"last_share", "1700000000", optionalInteger},
                 {"hash_rate_unit", R"("Th/s")", optionalText},
                 {"hash_rate_5m", "1", optionalNumber},
                 {"hash_rate_60m", "2.5", optionalNumber},
                 {"hash_rate_24h", "3", optionalNumber},
                 {"ltc", R"({"workers":{}})", object}});
}

TEST(PoolDocumentsTest, AWorkersNameIsNeitherLongNorDearToNormalize) {
  const auto repeated = [](int count, const std::string& text) {
    std::string result;
    while (count-- > 0) {
      result += text;
    }
    return result;
  };
  const std::pair<std::string, bool> names[]{
      {repeated(500, "e\u0301"), true},
      {repeated(500, "e\u0301") + "x", false},
      {"e" + repeated(15, "\u0301\u0323"), true},
      {"e" + repeated(15, "\u0301\u0323") + "\u0301", false}};
  for (const auto& [name, fits] : names) {
    const std::string body = R"({"btc":{"workers":{"a":{},")" + name + R"(":{}}}})";
    EXPECT_EQ(decodeWorkers(body).has_value(), fits) << name;
  }
}

TEST(AccountTest, MatchesStatesExactly) {
  const std::pair<std::string, State> cases[]{
      {"ok", State::ok},        {"low", State::low},          {"off", State::off},
      {"dis", State::disabled}, {"disabled", State::unknown}, {"OK", State::unknown},
      {" ok", State::unknown}};
  for (const auto& [text, state] : cases) {
    const auto workers = workersOf(R"({"btc":{"workers":{"a":{"state":")" + text + R"("}}}})");
    EXPECT_EQ(workers.at(0).state, state) << text;
  }
}

TEST(AccountTest, ReadsTheBitcoinEntryOrElseTheFirst) {
  EXPECT_THAT(workersOf("{}"), IsEmpty());
  EXPECT_THAT(workersOf(R"({"btc":{"workers":{}},"aaa":{"workers":{"a":{}}}})"), IsEmpty());
  EXPECT_EQ(workersOf(R"({"group2":{"workers":{}},"group1":{"workers":{"a":{}}}})").size(), 1U);
}

TEST(AccountTest, OrdersByTheLastFiveMinutesAndThenByNormalizedName) {
  const std::pair<std::string, std::vector<std::string>> cases[]{
      {R"("a":{"hash_rate_unit":"Gh/s","hash_rate_5m":900,"hash_rate_24h":900},)"
       R"("b":{"hash_rate_unit":"Th/s","hash_rate_5m":1},"c":{"hash_rate_5m":2000})",
       {"b", "a", "c"}},
      {R"("a":{},"B":{},"b":{},"ab":{})", {"B", "a", "ab", "b"}},
      // U+00E9 as two code points: as such it would come before "eu", normalized it comes behind.
      {"\"e\u0301\":{},\"f\":{},\"eu\":{}", {"eu", "f", "e\u0301"}},
      // In UTF-16 the emoji, a pair of surrogates, would come first.
      {"\"\U0001F600\":{},\"\uFF21\":{}", {"\uFF21", "\U0001F600"}},
      {"\"\u00E9\":{},\"e\u0301\":{}", {"e\u0301", "\u00E9"}},
      {R"("a":{"state":"ok"},"b":{},"a":{"hash_rate_5m":-1})", {"b", "a"}}};
  for (const auto& [members, order] : cases) {
    std::vector<std::string> names;
    for (const auto& worker : workersOf(R"({"btc":{"workers":{)" + members + "}}}")) {
      names.push_back(worker.fullName);
    }
    EXPECT_EQ(names, order) << members;
  }
}

TEST(PoolFiguresTest, ScalesByKnownUnitsOnly) {
  const std::pair<double, std::vector<std::string>> cases[]{
      {1, {"h/s", "hs", "EH/s", "", "Gh / s", "Gh/sec", "G", "\u212Ah/s"}},  // the Kelvin sign
      {1e3, {"kh/s", "khs"}},
      {1e6, {"Mh/s", "MHS"}},
      {1e9, {"Gh/s", "ghs", " GH/s "}},
      {1e12, {"TH/s", "ths", "\u00A0Th/s\u2028\n"}},
      {1e15, {"Ph/s", "PHS"}}};
  for (const auto& [factor, units] : cases) {
    for (const std::string& unit : units) {
      EXPECT_EQ(hashRateUnitFactor(unit), factor) << unit;
    }
  }
}

TEST(PoolFiguresTest, ReadsAmountsWithoutBinaryRounding) {
  const std::pair<std::int64_t, std::vector<std::string>> cases[]{
      {1, {"0.00000001", "1e-8", "0.000000005"}},
      {-1, {"-0.000000005"}},
      {9'007'199'254'740'993, {"90071992.54740993"}},
      {0, {"", "abc", "1,5", "0.1 BTC", " 1", "0.000000004"}},
      {largest, {"92233720368.54775807", "92233720368.54775808"}},
      {smallest, {"-92233720368.54775808", "-1e1000"}}};
  for (const auto& [sats, texts] : cases) {
    for (const std::string& text : texts) {
      EXPECT_EQ(satsFromBTCText(text), sats) << text;
    }
  }
}

TEST(PoolFiguresTest, RoundsSharesHalvesAwayFromZeroAndSaturates) {
  const std::pair<double, std::int64_t> cases[]{{1536, 2},          {512, 1},  {511.9, 0},
                                                {-512, -1},         {-511, 0}, {0x1p73, largest},
                                                {-0x1p74, smallest}};
  for (const auto& [figure, shares] : cases) {
    EXPECT_EQ(sharesFromPoolFigure(figure), shares) << figure;
  }
}

}}  // namespace orvane::test
