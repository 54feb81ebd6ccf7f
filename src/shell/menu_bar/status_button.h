#pragma once

#include <optional>
#include <string>
#include <vector>
#include "platform/tray/status_item.h"

namespace orvane {
/// "12.3 TH": a hash rate, in hashes per second, with three digits or so, for the text beside the
/// status icon. Empty for anything but a rate above zero and up to 1e14.
[[nodiscard]] std::string menuBarRateText(double hashesPerSecond);

/// What the status item is to show: a symbol, tinted or not, and a text beside it.
struct StatusButtonContent {
  std::vector<std::string> symbolNames;  ///< the first one that the desktop has is taken
  std::string symbolDescription;         ///< for screen readers
  std::optional<StatusColor> color;      ///< nothing: the symbol follows the panel's colour
  std::string text;                      ///< drawn in green; empty: the symbol alone
  std::string spokenSuffix;              ///< said after the text by screen readers
};

/// A drawn status button and the length that its item takes.
struct StatusButton {
  std::optional<StatusImage> image;
  double length = StatusItem::squareLength;

  bool operator==(const StatusButton&) const = default;
};

/// Composes the button with the sizes that `statusBar` measures. Without any symbol there is no
/// image, and no text either.
[[nodiscard]] StatusButton composeStatusButton(const StatusBar& statusBar,
                                               const StatusButtonContent& content);
}  // namespace orvane
