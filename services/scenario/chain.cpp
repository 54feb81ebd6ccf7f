#include "services/scenario/chain.h"
#include <algorithm>
#include <iterator>
#include <utility>

namespace orvane::services {
namespace {
constexpr std::int64_t regularPaymentSats = 54'321;
/// A solo miner's whole block: subsidy and fees.
constexpr std::int64_t wholeRewardSats = 312'884'210;
}  // namespace

Chain::Chain(Plan plan) : address_(std::move(plan.address)) {
  tellHistory();
  coming_.emplace_back(blockInterval, Occasion::block, blockInterval);
  coming_.emplace_back(paymentInterval, Occasion::payment, paymentInterval);
  if (plan.paymentAfter) {
    coming_.emplace_back(*plan.paymentAfter, Occasion::payment, std::nullopt);
  }
  if (plan.rewardAfter) { coming_.emplace_back(*plan.rewardAfter, Occasion::reward, std::nullopt); }
}

void Chain::confirmAt(std::int64_t depth, ChainTransaction transaction) {
  transaction.blockHeight = tipHeight_ - depth + 1;
  confirmed_.push_back(std::move(transaction));
}

void Chain::tellHistory() {
  confirmAt(52'000, maker_.blockReward(address_, 61'250));
  confirmAt(40'123, maker_.payment(address_, 150'000));
  confirmAt(31'007, maker_.blockReward(address_, 58'777));
  confirmAt(20'456, maker_.payment(address_, 98'700));
  confirmAt(12'345, maker_.blockReward(address_, 64'003));
  confirmAt(9'001, maker_.payment(address_, 120'000));
  confirmAt(7'310, maker_.batchPayment(address_, 43'210, 100));
  confirmAt(6'042, maker_.spending(address_, 150'000, 4'000));
  confirmAt(3'111, maker_.paymentWithData(address_, {25'000}));
  confirmAt(2'020, maker_.spending(address_, 98'700, 0));
  confirmAt(505, maker_.paymentWithData(address_, {1'000, 2'500}));
  confirmAt(100, maker_.blockReward(address_, 49'100));
  confirmAt(99, maker_.blockReward(address_, 49'099));
  confirmAt(2, maker_.payment(address_, 12'000));
  confirmAt(1, maker_.blockReward(address_, 49'001));
  unconfirmed_.push_back(maker_.payment(address_, 12'345));
  // Not what a real chain does, but what an explorer may show while a block is being replaced.
  unconfirmed_.push_back(maker_.blockReward(address_, 31'250));
}

void Chain::advanceTo(ScenarioSeconds elapsed) {
  while (true) {
    const auto next = std::ranges::min_element(coming_, {}, &Event::time);
    if (next == coming_.end() || next->time > elapsed) { return; }
    const Occasion occasion = next->occasion;
    if (next->repeatedAfter) {
      next->time += *next->repeatedAfter;
    } else {
      coming_.erase(next);
    }
    happen(occasion);
  }
}

void Chain::happen(Occasion occasion) {
  switch (occasion) {
    case Occasion::block:
      return mineBlock();
    case Occasion::payment:
      return pay(address_, regularPaymentSats);
    case Occasion::reward:
      return reward(address_, wholeRewardSats);
  }
}

void Chain::pay(const std::string& address, std::int64_t sats) {
  unconfirmed_.push_back(maker_.payment(address, sats));
}

void Chain::reward(const std::string& address, std::int64_t sats) {
  mineBlock();
  confirmAt(1, maker_.blockReward(address, sats));
}

void Chain::mineBlock() {
  ++tipHeight_;
  for (ChainTransaction& transaction : std::exchange(unconfirmed_, {})) {
    confirmAt(1, std::move(transaction));
  }
}

std::vector<ChainTransaction> Chain::transactionsOf(std::string_view address) const {
  std::vector<ChainTransaction> found;
  const auto collect = [&](const std::vector<ChainTransaction>& oldestFirst) {
    std::copy_if(oldestFirst.rbegin(), oldestFirst.rend(), std::back_inserter(found),
                 [&](const ChainTransaction& each) { return each.concerns(address); });
  };
  collect(unconfirmed_);
  collect(confirmed_);
  return found;
}

AddressTotals Chain::confirmedTotals(std::string_view address) const {
  AddressTotals totals;
  for (const ChainTransaction& each : confirmed_) {
    addTo(totals, each, address);
  }
  return totals;
}

AddressTotals Chain::unconfirmedTotals(std::string_view address) const {
  AddressTotals totals;
  for (const ChainTransaction& each : unconfirmed_) {
    addTo(totals, each, address);
  }
  return totals;
}
}  // namespace orvane::services
