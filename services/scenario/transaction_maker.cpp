#include "services/scenario/transaction_maker.h"

#include <optional>
#include <utility>

namespace orvane::services {
namespace {

constexpr std::int64_t fee = 600;
constexpr std::int64_t blockSubsidy = 312'500'000;
constexpr std::int64_t strangersChange = 1'250'000;

}  // namespace

ChainTransaction TransactionMaker::paidByStranger(std::vector<ChainOutput> outputs) {
  std::int64_t sum = fee;
  for (const ChainOutput& output : outputs) {
    sum += output.sats;
  }
  return {.txid = txid(),
          .inputs = {{.address = stranger(), .sats = sum}},
          .outputs = std::move(outputs)};
}

ChainTransaction TransactionMaker::payment(const std::string& address, std::int64_t sats) {
  return paidByStranger({{address, sats}, {stranger(), strangersChange}});
}

ChainTransaction TransactionMaker::blockReward(const std::string& address, std::int64_t sats) {
  ChainTransaction reward{
      .txid = txid(), .inputs = {{.isCoinbase = true}}, .outputs = {{address, sats}}};
  if (sats < blockSubsidy) { reward.outputs.emplace_back(stranger(), blockSubsidy - sats); }
  reward.outputs.emplace_back(std::nullopt, 0);
  return reward;
}

ChainTransaction TransactionMaker::paymentWithData(const std::string& address,
                                                   const std::vector<std::int64_t>& sats) {
  std::vector<ChainOutput> outputs{{std::nullopt, 0}};
  for (const std::int64_t value : sats) {
    outputs.emplace_back(address, value);
  }
  return paidByStranger(std::move(outputs));
}

ChainTransaction TransactionMaker::batchPayment(const std::string& address, std::int64_t sats,
                                                std::size_t outputs) {
  std::vector<ChainOutput> all;
  while (all.size() < outputs) {
    const auto place = all.size();
    if (place == outputs / 2) {
      all.emplace_back(address, sats);
    } else {
      all.emplace_back(stranger(), sats + 137 * static_cast<std::int64_t>(place));
    }
  }
  return paidByStranger(std::move(all));
}

ChainTransaction TransactionMaker::spending(const std::string& address, std::int64_t sats,
                                            std::int64_t change) {
  ChainTransaction transaction{.txid = txid(),
                               .inputs = {{.address = address, .sats = sats}},
                               .outputs = {{stranger(), sats - change - fee}}};
  if (change > 0) { transaction.outputs.emplace_back(address, change); }
  return transaction;
}

}  // namespace orvane::services
