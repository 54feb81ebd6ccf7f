#include <limits>

#include <gmock/gmock.h>

#include "shell/view_models/card_contents.h"
#include "shell/view_models/settings_fields.h"
#include "shell/view_models/worker_rows.h"

namespace orvane::test {
namespace {

using State = BraiinsWorkerStatus::State;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

const LocaleFormat english({.numbers = "en_US", .dates = "en_US", .timeZone = "UTC"});

TEST(WorkerRowTest, IsNamedByWhatFollowsTheFirstDot) {
  const std::vector<std::pair<std::string_view, std::string_view>> cases{{"pellam.mac", "mac"},
                                                                         {"pellam", "pellam"},
                                                                         {"pellam.", "pellam."},
                                                                         {"a.b.c", "b.c"},
                                                                         {".a", "a"},
                                                                         {".", "."},
                                                                         {"", ""}};
  for (const auto& [fullName, name] : cases) {
    EXPECT_EQ(shortWorkerName(fullName), name) << fullName;
  }
}

TEST(WorkerRowTest, TellsTheStateAndTheLastShareWhenever) {
  EXPECT_EQ(workerRow({.fullName = "a", .state = State::disabled}, english).stateWord, "Disabled");
  EXPECT_EQ(workerRow({.fullName = "a", .state = State::unknown}, english).stateWord, "—");
  EXPECT_EQ(workerRow({.fullName = "a"}, english).stateToolTip, "");
  for (const auto time : {std::chrono::sys_seconds::min(), std::chrono::sys_seconds::max()}) {
    EXPECT_TRUE(workerRow({.fullName = "a", .lastShare = time}, english)
                    .stateToolTip.starts_with("Last share "));
  }
}

TEST(WorkerRowTest, CountsTheWorkersThatAreWell) {
  const BraiinsWorkerStatus well{.fullName = "a", .state = State::ok};
  const BraiinsWorkerStatus low{.fullName = "a", .state = State::low};
  EXPECT_EQ(workersSubtitle({}), "");
  EXPECT_EQ(workersSubtitle(std::vector{well, low, well}), "2 of 3 OK");
  EXPECT_EQ(workersSubtitle(std::vector{well, well, well}), "3 OK");
}

struct RewardCase {
  std::int64_t tip;
  std::optional<std::int64_t> height;
  std::string_view text;
  bool isSpendable;
};

TEST(BlockRewardLineTest, CountsUpToTheConfirmationThatFreesIt) {
  const std::vector<RewardCase> cases{
      {850'000, 850'000, "Block #850,000 · 5 sats · 1 of 100 confirmations", false},
      {850'098, 850'000, "Block #850,000 · 5 sats · 99 of 100 confirmations", false},
      {850'099, 850'000, "Block #850,000 · 5 sats · spendable", true},
      {849'000, 850'000, "Block #850,000 · 5 sats · 0 of 100 confirmations", false},
      {850'000, {}, "Unconfirmed block · 5 sats · 0 of 100 confirmations", false},
      {largest, smallest, "Block #-9,223,372,036,854,775,808 · 5 sats · spendable", true},
  };
  for (const RewardCase& test : cases) {
    BalanceState state;
    state.addressSummary = WatchedAddressSummary{
        .tipHeight = test.tip,
        .incoming = {{.txid = "payment", .sats = 7},
                     {.txid = "r", .sats = 5, .isCoinbase = true, .blockHeight = test.height}}};
    EXPECT_THAT(blockRewardLines(state, english),
                ElementsAre(BlockRewardLine{.text = std::string(test.text),
                                            .isSpendable = test.isSpendable}));
  }
  EXPECT_THAT(blockRewardLines({}, english), IsEmpty());
}

TEST(SettingsSectionTest, BlanksAroundADraftAreNothingToSave) {
  BalanceState state;
  EXPECT_FALSE(tokenFieldState(state, " \n").canSave);
  EXPECT_FALSE(tokenFieldState(state, "").canRemove);
  EXPECT_TRUE(tokenFieldState(state, "a").canSave);
  state.token = "a";
  EXPECT_FALSE(tokenFieldState(state, "\u00a0a\u2028").canSave);
  EXPECT_TRUE(tokenFieldState(state, "a b").canSave);
  EXPECT_TRUE(tokenFieldState(state, "").canRemove);
}

}  // namespace
}  // namespace orvane::test
