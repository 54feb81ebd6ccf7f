#include <algorithm>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "services/local_services.h"
#include "services/scenario/scenario_chain.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using services::Chain;
using services::ChainTransaction;

const std::string sample{services::sampleAddress};

Chain quietChain() {
  return Chain({.address = sample, .paymentAfter = std::nullopt, .rewardAfter = std::nullopt});
}

TEST(ChainScenarioTest, HistoryHasRewardsAtEveryDepthThatMattersAndOddTransactions) {
  const Chain chain = quietChain();
  std::set<std::int64_t> rewardDepths;
  bool hundredOutputs = false;
  bool data = false;
  bool change = false;
  for (const ChainTransaction& each : chain.transactionsOf(sample)) {
    if (each.inputs.front().isCoinbase) {
      rewardDepths.insert(each.blockHeight ? chain.tipHeight() - *each.blockHeight + 1 : 0);
    }
    hundredOutputs |= each.outputs.size() == 100;
    data |= !each.outputs.front().address.has_value();
    change |= each.inputs.front().address == sample && each.outputs.back().address == sample;
  }
  for (const std::int64_t depth : {0, 1, 99, 100}) {
    EXPECT_TRUE(rewardDepths.contains(depth)) << depth;
  }
  EXPECT_TRUE(hundredOutputs && data && change);
}

TEST(ChainScenarioTest, StateDependsOnTheTimeAndNotOnHowOftenItIsLookedAt) {
  Chain once = quietChain();
  once.advanceTo(239s);
  EXPECT_EQ(once.tipHeight(), services::openingTipHeight);
  EXPECT_GT(once.unconfirmedTotals(sample).fundedSats, 0);
  once.advanceTo(7196s);
  Chain often = quietChain();
  for (auto time = 0s; time <= 7196s; time += 7s) {
    often.advanceTo(time);
  }
  EXPECT_EQ(often.tipHeight(), services::openingTipHeight + 29);
  EXPECT_EQ(often.tipHeight(), once.tipHeight());
  EXPECT_EQ(often.confirmedTotals(sample).fundedSats, once.confirmedTotals(sample).fundedSats);
}

TEST(ChainScenarioTest, PlannedPaymentAndRewardComeOnceAtTheirTime) {
  Chain chain({.address = sample, .paymentAfter = 20s, .rewardAfter = 40s});
  const auto before = chain.transactionsOf(sample).size();
  for (const auto& [time, added] : {std::pair(19s, 0U), std::pair(20s, 1U), std::pair(100s, 2U)}) {
    chain.advanceTo(time);
    EXPECT_EQ(chain.transactionsOf(sample).size(), before + added);
  }
  EXPECT_TRUE(chain.transactionsOf(sample).front().inputs.front().isCoinbase);
}

}  // namespace
}  // namespace orvane::test
