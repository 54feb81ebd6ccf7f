#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include "services/scenario/moment.h"
#include "services/scenario/transactions.h"

namespace orvane::services {
/// Height of the chain when the story starts.
inline constexpr std::int64_t openingTipHeight = 976'400;
/// A block follows a block after this time, and confirms all that waits.
inline constexpr std::chrono::seconds blockInterval{240};
/// The sample address is paid again and again after this time.
inline constexpr std::chrono::seconds paymentInterval{1800};

/// A block chain, as far as one address can be seen on it. It starts with a history of the sample
/// address: payments, one of them with change, one among a hundred outputs, one beside data,
/// spending, and block rewards from unconfirmed to old, among them such with 1, 99 and 100
/// confirmations. It grows and pays as time goes on, whenever it is looked at.
class Chain {
 public:
  struct Plan {
    std::string address;                          ///< the sample address
    std::optional<ScenarioSeconds> paymentAfter;  ///< one more payment, this long after the start
    std::optional<ScenarioSeconds> rewardAfter;   ///< and a block whose whole reward it gets
  };

  explicit Chain(Plan plan);

  /// Lets happen what is due. A moment before the last one changes nothing.
  void advanceTo(ScenarioSeconds elapsed);

  /// An unconfirmed payment, now.
  void pay(const std::string& address, std::int64_t sats);
  /// A block, now, whose reward pays the address.
  void reward(const std::string& address, std::int64_t sats);
  void mineBlock();

  [[nodiscard]] std::int64_t tipHeight() const { return tipHeight_; }

  /// What pays or spends from the address: unconfirmed first, then from the newest to the oldest.
  [[nodiscard]] std::vector<ChainTransaction> transactionsOf(std::string_view address) const;
  [[nodiscard]] AddressTotals confirmedTotals(std::string_view address) const;
  [[nodiscard]] AddressTotals unconfirmedTotals(std::string_view address) const;

 private:
  enum class Occasion { block, payment, reward };
  struct Event {
    ScenarioSeconds time;
    Occasion occasion;
    std::optional<ScenarioSeconds> repeatedAfter;
  };

  void tellHistory();
  void confirmAt(std::int64_t depth, ChainTransaction transaction);
  void happen(Occasion occasion);

  std::string address_;
  TransactionMaker maker_;
  std::int64_t tipHeight_ = openingTipHeight;
  std::vector<ChainTransaction> confirmed_;    ///< oldest first
  std::vector<ChainTransaction> unconfirmed_;  ///< oldest first
  std::vector<Event> coming_;
};
}  // namespace orvane::services
