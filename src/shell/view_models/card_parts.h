#pragma once

#include <optional>
#include <string>

namespace orvane {

/// The line beneath a card's figures.
struct StatusLine {
  enum class Kind { normal, warning };

  std::string text;
  Kind kind = Kind::normal;

  bool operator==(const StatusLine&) const = default;
};

/// A button that starts a refresh; it cannot be pressed while it is busy.
struct RefreshButtonState {
  bool isVisible = true;
  bool isBusy = false;

  bool operator==(const RefreshButtonState&) const = default;
};

/// A card's large figure, or the words that stand in its place.
struct BalanceFigure {
  std::string text;
  bool isPlaceholder = false;
  std::optional<std::string> fiatValue = {};  ///< without the "≈ " before it

  bool operator==(const BalanceFigure&) const = default;
};

}  // namespace orvane
