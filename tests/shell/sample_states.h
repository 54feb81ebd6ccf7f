#pragma once

#include "core/balance_state.h"
#include "support/store_on_fakes.h"

namespace orvane::test {
/// A pool account with workers in every state, without history.
[[nodiscard]] BalanceState poolAccount();
/// An address with block rewards in every stage of maturity.
[[nodiscard]] BalanceState watchedAddress();
/// Both, with a year of history and prices.
[[nodiscard]] BalanceState everything();

[[nodiscard]] std::vector<BraiinsWorkerStatus> manyWorkers(int count);

/// A state of the main window that is worth looking at.
struct Sample {
  std::string name;
  BalanceState figures;
  bool servicesFail = false;  ///< once the figures are there

  /// Brings a store into this state.
  void showIn(StoreOnFakes& fakes) const;
};

[[nodiscard]] std::vector<Sample> samples();
}  // namespace orvane::test
