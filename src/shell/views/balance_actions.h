#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/balance_state.h"
#include "platform/desktop/menu.h"

namespace orvane {

/// What the main window's controls do. Every action is set.
struct BalanceActions {
  std::function<void()> refresh;
  std::function<void()> loadHistory;
  std::function<void(const std::string& text)> setToken;
  /// Returns the message to show when the text is refused.
  std::function<std::optional<std::string>(const std::string& text)> setOwnAddress;
  std::function<void(BalanceUnit)> setUnit;
  std::function<void(PreferredFiatCurrency)> setFiatCurrency;
  std::function<void()> close;
  /// Commands of the application, in a menu beside the Close button; empty: no such button.
  Menu commands = {};
};

}  // namespace orvane
