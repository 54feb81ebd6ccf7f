#include "pool/history.h"
#include "pool/pool_documents.h"
#include "support/document_members.h"

namespace orvane::test { namespace {

using namespace std::chrono_literals;
using std::chrono::seconds;
using std::chrono::sys_seconds;
using History = std::vector<BraiinsHistoryDay>;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t today = 1'794'700'800;
const sys_seconds day = std::chrono::sys_days{std::chrono::year{2026} / 11 / 15};

std::string reward(std::int64_t date, const std::string& amount) {
  return R"({"date":)" + std::to_string(date) + R"(,"total_reward":")" + amount + R"("})";
}

std::string hashrate(std::int64_t date, const std::string& rate, const std::string& shares) {
  return R"({"date":)" + std::to_string(date) + R"(,"hash_rate_unit":"Gh/s","hash_rate_24h":)" +
         rate + R"(,"total_shares":)" + shares + "}";
}

History build(const std::string& rewards, const std::string& hashrates) {
  return buildHistoryDays(R"({"btc":{"daily_rewards":[)" + rewards + "]}}",
                          R"({"btc":[)" + hashrates + "]}")
      .value();
}

TEST(HistoryBuilderTest, JoinsOnlyEqualMomentsNewestFirst) {
  const History expected{{.date = day + 1s, .averageHashRate = 5e9, .shares = 2},
                         {.date = day, .rewardBTC = "0.0001"},
                         {.date = day - 5s, .averageHashRate = 1e9, .shares = 0, .rewardBTC = "3"}};
  EXPECT_EQ(build(reward(today - 5, "3") + "," + reward(today, "0.0001"),
                  hashrate(today - 5, "1", "0") + "," + hashrate(today + 1, "5", "2048")),
            expected);
}

TEST(HistoryBuilderTest, LaterEntriesReplaceEarlierOnesAndKeepTheReward) {
  const History expected{{.date = day, .averageHashRate = 0, .shares = 1, .rewardBTC = "2"}};
  EXPECT_EQ(build(reward(today, "1") + "," + reward(today, "2"),
                  hashrate(today, "1", "0") + "," + hashrate(today, "0", "1024")),
            expected);
}

TEST(HistoryBuilderTest, ReadsTheHashratesOfAGroupOfAnotherName) {
  const std::string empty = R"({"btc":{"daily_rewards":[]}})";
  EXPECT_EQ(buildHistoryDays(empty, R"({"rigs":[)" + hashrate(today, "1", "0") + "]}")->size(), 1U);
  EXPECT_EQ(buildHistoryDays("{}", "{}"), std::nullopt);
}

TEST(HistoryBuilderTest, KeepsDaysOnWhichSomethingHappened) {
  const std::tuple<std::string, std::string, bool> cases[]{
      {reward(today, "0.00000000"), "", false},
      {reward(today, "-1"), "", false},
      {reward(today, "abc"), "", false},
      {reward(today, "0.00000001"), "", true},
      {reward(today, "1"), hashrate(today, "0", "0"), true},
      {"", hashrate(today, "0", "511"), false},
      {"", hashrate(today, "0", "512"), true},
      {"", hashrate(today, "0.1", "0"), true},
      {"", hashrate(today, "-1", "-2048"), false}};
  for (const auto& [rewards, hashrates, isKept] : cases) {
    EXPECT_EQ(build(rewards, hashrates).size(), isKept ? 1U : 0U) << rewards << hashrates;
  }
}

TEST(HistorySummaryTest, AddsAndAveragesOnlyWhatADayHas) {
  const BraiinsHistorySummary summary(History{{.averageHashRate = 0, .rewardBTC = "0.00012345"},
                                              {.rewardBTC = "x"},
                                              {.averageHashRate = 10, .rewardBTC = "0.000000003"}});
  EXPECT_EQ(summary.dayCount, 3);
  EXPECT_EQ(summary.averageHashRate, 5);
  EXPECT_EQ(summary.totalRewardSats, Decimal::parse("12345.3"));
  EXPECT_EQ(BraiinsHistorySummary({}).averageHashRate, std::nullopt);
}

TEST(HistorySummaryTest, SharesStopAtTheEndsOfTheirRange) {
  const auto total = [](std::int64_t one, std::int64_t other) {
    return BraiinsHistorySummary(History{{.shares = one}, {}, {.shares = other}}).totalShares;
  };
  EXPECT_EQ(total(2, 3), 5);
  EXPECT_EQ(total(largest, 1), largest);
  EXPECT_EQ(total(-1, smallest), smallest);
}

TEST(HistoryStorageTest, WritesDatesFrom2001AndLeavesOutWhatIsAbsent) {
  const BraiinsHistoryDay whole{
      .date = day, .averageHashRate = 2.5, .shares = 2, .rewardBTC = "0.1"};
  EXPECT_EQ(encodeHistory(History{{.date = day}, whole}),
            R"([{"date":816393600},)"
            R"({"averageHashRate":2.5,"date":816393600,"rewardBTC":"0.1","shares":2}])");
}

TEST(HistoryStorageTest, ReadsBackWhatItWrote) {
  const History days{
      {.date = day, .averageHashRate = 5e9 / 3, .shares = 7, .rewardBTC = "0.00012345"},
      {.date = sys_seconds(seconds(1)), .averageHashRate = 1e300, .shares = smallest},
      {.date = sys_seconds(seconds(largest)), .rewardBTC = "\"\\\n\x01 \u20BF"},
      {.date = sys_seconds(seconds(smallest + 978'307'200)), .averageHashRate = 5e-324},
      {.date = sys_seconds(seconds(978'307'200 + 9'007'199'254'740'993))}};
  EXPECT_EQ(decodeHistory(encodeHistory(days).value()), days);
}

TEST(HistoryStorageTest, TakesAnyNumberForADate) {
  const std::pair<std::string, sys_seconds> cases[]{
      {"8.163936e8", day},
      {"816393600.999", day},
      {"-0.5", sys_seconds(seconds(978'307'199))},
      {"-1e300", sys_seconds(seconds(smallest + 978'307'200))},
      {"9223372036854775807", sys_seconds(seconds(largest))},
      {"99999999999999999999", sys_seconds(seconds(largest))}};
  for (const auto& [date, time] : cases) {
    EXPECT_EQ(decodeHistory(R"([{"date":)" + date + "}]"), (History{{.date = time}})) << date;
  }
}

// Also in groups that are not used.
TEST(HistoryDocumentsTest, MatchAsAWhole) {
  using enum MemberType;
  expectMembers(decodeHistory,
                R"([{"date":816393600,"averageHashRate":5,"shares":2,"rewardBTC":"0.1","id":[]}])",
                {{"date", "816393600", number},
                 {"averageHashRate", "5", optionalNumber},
                 {"shares", "2", optionalInteger},
                 {"rewardBTC", R"("0.1")", optionalText}});
  const std::string list = R"([{"date":1794700800,"total_reward":"0.0001"}])";
  expectMembers(decodeRewards, R"({"btc":{"daily_rewards":)" + list + "}}",
                {{"date", "1794700800", integer},
                 {"total_reward", R"("0.0001")", text},
                 {"daily_rewards", list, array}});
  expectMembers(decodeDailyHashrate,
                R"({"btc":[{"date":1794700800,"hash_rate_unit":"Gh/s","hash_rate_24h":5,)"
                R"("total_shares":2048.5}],"other":[]})",
                {{"date", "1794700800", integer},
                 {"hash_rate_unit", R"("Gh/s")", text},
                 {"hash_rate_24h", "5", number},
                 {"total_shares", "2048.5", number},
                 {"other", "[]", array}});
}

}}  // namespace orvane::test
