#include <string>

#include <gmock/gmock.h>

#include "pool/history.h"

namespace orvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;

constexpr std::int64_t today = 1'794'700'800;  // 2026-11-15T00:00:00 UTC
constexpr std::int64_t aDay = 86'400;

std::string reward(std::int64_t date, const std::string& amount) {
  return R"({"date":)" + std::to_string(date) + R"(,"total_reward":")" + amount + R"("})";
}

std::string hashrate(std::int64_t date, const std::string& rate, const std::string& shares) {
  return R"({"date":)" + std::to_string(date) + R"(,"hash_rate_unit":"Gh/s","hash_rate_24h":)" +
         rate + R"(,"total_shares":)" + shares + "}";
}

std::string rewardsBody(const std::string& rewards) {
  return R"({"btc":{"daily_rewards":[)" + rewards + "]}}";
}

std::vector<BraiinsHistoryDay> build(const std::string& rewards, const std::string& days) {
  const auto built = buildHistoryDays(rewardsBody(rewards), R"({"btc":[)" + days + "]}");
  if (!built) { ADD_FAILURE() << "not built from " << rewards; }
  return built.value_or(std::vector<BraiinsHistoryDay>{});
}

std::chrono::sys_seconds at(std::int64_t date) {
  return std::chrono::sys_seconds(std::chrono::seconds(date));
}

TEST(HistoryBuilderTest, ASecondApartIsAnotherDay) {
  EXPECT_THAT(
      build(reward(today, "0.0001"), hashrate(today + 1, "5", "2048")),
      ElementsAre(BraiinsHistoryDay{.date = at(today + 1), .averageHashRate = 5e9, .shares = 2},
                  BraiinsHistoryDay{.date = at(today), .rewardBTC = "0.0001"}));
}

TEST(HistoryBuilderTest, LaterEntriesReplaceEarlierOnesAndKeepTheReward) {
  EXPECT_THAT(build(reward(today, "1") + "," + reward(today, "2"),
                    hashrate(today, "1", "0") + "," + hashrate(today, "0", "1024")),
              ElementsAre(BraiinsHistoryDay{
                  .date = at(today), .averageHashRate = 0, .shares = 1, .rewardBTC = "2"}));
}

TEST(HistoryBuilderTest, KeepsDaysOnWhichSomethingHappened) {
  for (const char* amount : {"0", "0.00000000", "-1", "abc", "nan"}) {
    EXPECT_THAT(build(reward(today, amount), ""), IsEmpty()) << amount;
  }
  for (const char* amount : {"0.00000001", "1e-400"}) {
    EXPECT_EQ(build(reward(today, amount), "").size(), 1U) << amount;
  }
  EXPECT_THAT(build("", hashrate(today, "0", "511")), IsEmpty());
  EXPECT_EQ(build("", hashrate(today, "0", "512")).size(), 1U);
  EXPECT_EQ(build("", hashrate(today, "0.1", "0")).size(), 1U);
  EXPECT_THAT(build("", hashrate(today, "-1", "-2048")), IsEmpty());
  EXPECT_EQ(build(reward(today, "1"), hashrate(today, "0", "0")).size(), 1U);
}

TEST(HistoryBuilderTest, NewestFirstWhateverTheOrder) {
  const std::vector<BraiinsHistoryDay> days =
      build(reward(today - aDay, "1") + "," + reward(today + aDay, "1"),
            hashrate(-aDay, "1", "1") + "," + hashrate(today, "1", "1"));
  const auto dated = [](std::int64_t date) { return Field(&BraiinsHistoryDay::date, at(date)); };
  EXPECT_THAT(days,
              ElementsAre(dated(today + aDay), dated(today), dated(today - aDay), dated(-aDay)));
}

}  // namespace
}  // namespace orvane::test
