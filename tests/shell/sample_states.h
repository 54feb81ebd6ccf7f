#pragma once

#include <string>
#include <vector>

#include "core/balance_state.h"

namespace orvane::test {

/// A state of the main window that is worth looking at.
struct NamedState {
  std::string name;
  BalanceState state;
};

/// A pool account with workers in every state, without history.
[[nodiscard]] BalanceState poolAccount();
/// An address with block rewards in every stage of maturity.
[[nodiscard]] BalanceState watchedAddress();
/// Both, with a year of history and prices.
[[nodiscard]] BalanceState everything();

[[nodiscard]] std::vector<BraiinsWorkerStatus> manyWorkers(int count);
[[nodiscard]] std::vector<BraiinsHistoryDay> manyDays(int count);

/// Every state of which there is a picture.
[[nodiscard]] std::vector<NamedState> namedStates();

}  // namespace orvane::test
