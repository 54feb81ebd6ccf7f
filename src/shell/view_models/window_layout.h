#pragma once

#include "core/balance_state.h"

namespace orvane {

/// Which parts of the main window show, and the least size they ask for in logical pixels.
struct WindowLayout {
  bool showsPoolCard = true;
  bool showsAddressCard = false;
  bool showsAccountColumn = false;  ///< workers and history
  int minimumWidth = 0;
  int minimumHeight = 0;

  bool operator==(const WindowLayout&) const = default;
};

[[nodiscard]] WindowLayout windowLayout(const BalanceState& state);

}  // namespace orvane
