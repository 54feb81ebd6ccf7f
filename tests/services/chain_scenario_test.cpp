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

std::set<std::int64_t> rewardDepths(const Chain& chain) {
  std::set<std::int64_t> depths;
  for (const ChainTransaction& each : chain.transactionsOf(sample)) {
    if (!each.inputs.front().isCoinbase) continue;
    depths.insert(each.blockHeight ? chain.tipHeight() - *each.blockHeight + 1 : 0);
  }
  return depths;
}

TEST(ChainScenarioTest, HistoryHasRewardsAtEveryDepthThatMatters) {
  const std::set<std::int64_t> depths = rewardDepths(quietChain());
  for (const std::int64_t depth : {0, 1, 99, 100})
    EXPECT_TRUE(depths.contains(depth)) << depth;
  EXPECT_GT(*depths.rbegin(), 10'000);
}

TEST(ChainScenarioTest, HistoryHasTheOddTransactions) {
  bool hundredOutputs = false;
  bool data = false;
  bool change = false;
  bool onlySpends = false;
  for (const ChainTransaction& each : quietChain().transactionsOf(sample)) {
    const bool pays = std::ranges::any_of(
        each.outputs, [](const auto& output) { return output.address == sample; });
    const bool spends = each.inputs.front().address == sample;
    hundredOutputs |= each.outputs.size() == 100;
    data |= !each.outputs.front().address.has_value();
    change |= spends && pays;
    onlySpends |= spends && !pays;
  }
  EXPECT_TRUE(hundredOutputs && data && change && onlySpends);
}

TEST(ChainScenarioTest, NewestStandsFirstAndEveryIdIsItsOwn) {
  const auto list = quietChain().transactionsOf(sample);
  std::set<std::string> ids;
  for (const ChainTransaction& each : list) {
    EXPECT_EQ(each.txid.size(), 64U);
    ids.insert(each.txid);
  }
  EXPECT_EQ(ids.size(), list.size());
  EXPECT_TRUE(std::ranges::is_sorted(list, std::ranges::greater(), [](const auto& each) {
    return each.blockHeight.value_or(services::openingTipHeight + 1);
  }));
}

TEST(ChainScenarioTest, ChainGrowsAndABlockConfirmsWhatWaits) {
  Chain chain = quietChain();
  chain.advanceTo(239s);
  EXPECT_EQ(chain.tipHeight(), services::openingTipHeight);
  EXPECT_GT(chain.unconfirmedTotals(sample).fundedSats, 0);
  chain.advanceTo(240s);
  EXPECT_EQ(chain.tipHeight(), services::openingTipHeight + 1);
  EXPECT_EQ(chain.unconfirmedTotals(sample).fundedSats, 0);
  EXPECT_TRUE(rewardDepths(chain).contains(101));
}

TEST(ChainScenarioTest, StateDependsOnTheTimeAndNotOnHowOftenItIsLookedAt) {
  Chain often = quietChain();
  for (auto time = 0s; time <= 2h; time += 7s)
    often.advanceTo(time);
  Chain once = quietChain();
  once.advanceTo(7196s);
  EXPECT_EQ(often.tipHeight(), once.tipHeight());
  EXPECT_EQ(often.confirmedTotals(sample).fundedSats, once.confirmedTotals(sample).fundedSats);
  EXPECT_EQ(often.transactionsOf(sample).front().txid, once.transactionsOf(sample).front().txid);
}

TEST(ChainScenarioTest, PlannedPaymentAndRewardComeOnceAtTheirTime) {
  Chain chain({.address = sample, .paymentAfter = 20s, .rewardAfter = 40s});
  const auto before = chain.transactionsOf(sample).size();
  chain.advanceTo(19s);
  EXPECT_EQ(chain.transactionsOf(sample).size(), before);
  chain.advanceTo(20s);
  EXPECT_EQ(chain.transactionsOf(sample).size(), before + 1);
  EXPECT_FALSE(chain.transactionsOf(sample).front().blockHeight);
  chain.advanceTo(100s);
  EXPECT_EQ(chain.transactionsOf(sample).size(), before + 2);
  const ChainTransaction reward = chain.transactionsOf(sample).front();
  EXPECT_TRUE(reward.inputs.front().isCoinbase);
  EXPECT_EQ(reward.blockHeight, chain.tipHeight());
}

TEST(ChainScenarioTest, OtherAddressesCanBePaidToo) {
  Chain chain = quietChain();
  const std::string second = services::inventedAddress(12'345'678);
  const auto before = chain.transactionsOf(sample).size();
  chain.pay(second, 700);
  EXPECT_EQ(chain.unconfirmedTotals(second).fundedSats, 700);
  chain.reward(second, 900);
  EXPECT_EQ(chain.confirmedTotals(second).fundedSats, 1'600);
  EXPECT_EQ(chain.transactionsOf(sample).size(), before);
}

}  // namespace
}  // namespace orvane::test
