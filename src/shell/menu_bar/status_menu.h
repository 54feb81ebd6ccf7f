#pragma once

#include <functional>

#include "core/balance_state.h"
#include "platform/desktop/menu.h"
#include "shell/menu_bar/menu_bar_status.h"

namespace orvane {

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
