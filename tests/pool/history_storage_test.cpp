#include <limits>

#include <gtest/gtest.h>

#include "pool/history.h"
#include "pool/malformed_bodies.h"

namespace orvane::test {
namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;
using History = std::vector<BraiinsHistoryDay>;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
const sys_seconds day = std::chrono::sys_days{std::chrono::year{2026} / 11 / 15};

TEST(HistoryStorageTest, WritesDatesFrom2001AndLeavesOutWhatIsAbsent) {
  EXPECT_EQ(encodeHistory(History{{.date = day}}), R"([{"date":816393600}])");
  EXPECT_EQ(encodeHistory(
                History{{.date = day, .averageHashRate = 2.5, .shares = 2, .rewardBTC = "0.1"}}),
            R"([{"averageHashRate":2.5,"date":816393600,"rewardBTC":"0.1","shares":2}])");
  EXPECT_EQ(encodeHistory(History{}), "[]");
}

TEST(HistoryStorageTest, ReadsBackWhatItWrote) {
  const History days{
      {.date = day, .averageHashRate = 5e9 / 3, .shares = 7, .rewardBTC = "0.00012345"},
      {.date = sys_seconds(seconds(1)), .averageHashRate = 1e300, .shares = smallest},
      {.date = sys_seconds(seconds(largest)), .rewardBTC = "\"\\\n\x01 \u20BF"},
      {.date = sys_seconds(seconds(smallest + 978'307'200)), .averageHashRate = 5e-324},
      {.date = day, .averageHashRate = 5e9},
      {.date = sys_seconds(seconds(978'307'200 + 9'007'199'254'740'993))}};
  const std::optional<std::string> bytes = encodeHistory(days);
  ASSERT_TRUE(bytes);
  EXPECT_EQ(decodeHistory(*bytes), days);
}

TEST(HistoryStorageTest, WritesNothingWhenADayCannotBeWritten) {
  for (const double rate :
       {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(encodeHistory(History{{.date = day}, {.averageHashRate = rate}}), std::nullopt);
  }
  EXPECT_EQ(encodeHistory(History{{.rewardBTC = "\xC3"}}), std::nullopt);
}

TEST(HistoryStorageTest, TakesAnyNumberForADate) {
  const std::vector<std::pair<std::string, sys_seconds>> cases{
      {"816393600", day},
      {"816393600.0", day},
      {"8.163936e8", day},
      {"816393600.999", day},
      {"-0.5", sys_seconds(seconds(978'307'199))},
      {"1e300", sys_seconds(seconds(largest))},
      {"-1e300", sys_seconds(seconds(smallest + 978'307'200))},
      {"9223372036854775807", sys_seconds(seconds(largest))},
      {"99999999999999999999", sys_seconds(seconds(largest))},
  };
  for (const auto& [date, time] : cases) {
    const std::optional<History> days = decodeHistory(R"([{"date":)" + date + "}]");
    ASSERT_TRUE(days) << date;
    EXPECT_EQ(days->at(0).date, time) << date;
  }
}

TEST(HistoryStorageTest, KeepsTheStoredOrderAndIgnoresOtherMembers) {
  const History expected{{.date = day, .shares = 1}, {.date = day + seconds(60)}};
  EXPECT_EQ(decodeHistory(R"([{"date":816393600,"shares":1,"id":[{}]},)"
                          R"({"date":816393660,"shares":null,"averageHashRate":null}])"),
            expected);
  EXPECT_EQ(decodeHistory("[]"), History{});
}

TEST(HistoryStorageTest, ReadsNothingFromWhatIsNoHistory) {
  const std::string valid =
      R"([{"date":816393600,"averageHashRate":5,"shares":2,"rewardBTC":"0.1"}])";
  ASSERT_TRUE(decodeHistory(valid));
  expectNothingFrom(malformedBodies(valid), decodeHistory);
  const std::vector<std::pair<std::string, std::vector<std::string>>> members{
      {R"("date":816393600)", {"null", "\"2026-11-15\"", "true", "[]"}},
      {R"("averageHashRate":5)", {"\"5\"", "true", "1e400"}},
      {R"("shares":2)", {"2.5", "\"2\"", "9223372036854775808"}},
      {R"("rewardBTC":"0.1")", {"0.1", "[]"}},
  };
  for (const auto& [member, values] : members) {
    expectNothingFrom(withMember(valid, member, values), decodeHistory);
  }
  expectNothingFrom({"{}", "[{}]", "[null]", R"([{"date":1},2])"}, decodeHistory);
}

}  // namespace
}  // namespace orvane::test
