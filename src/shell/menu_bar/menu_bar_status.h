#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/balance_state.h"

namespace orvane {

/// "12,345 sats": an amount of satoshis in the unit that is shown.
using AmountText = std::function<std::string(std::int64_t sats)>;

/// What the status item says of the state.
struct MenuBarStatus {
  bool working = false;  ///< there are figures
  std::string text;
  bool alert = false;  ///< the last refresh of some source failed

  bool operator==(const MenuBarStatus&) const = default;
};

/// A failure comes before a balance, and the pool before the address.
[[nodiscard]] MenuBarStatus menuBarStatus(const BalanceState& state, const AmountText& amountText);

}  // namespace orvane
