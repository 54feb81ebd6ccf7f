#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include "core/balance_state.h"
#include "platform/desktop/desktop_application.h"

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

/// What the items of the status menu do.
struct StatusMenuActions {
  std::function<void()> showMainWindow;
  std::function<void()> refreshNow;
  std::function<void()> showHelp;
  std::function<void()> showAbout;
  std::function<void()> quit;
};

/// The menu of the status item: the figures there are, then the commands.
[[nodiscard]] Menu makeStatusMenu(const BalanceState& state, const AmountText& amountText,
                                  StatusMenuActions actions);
}  // namespace orvane
