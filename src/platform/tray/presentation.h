#pragma once

#include <string>
#include <vector>

namespace orvane {

/// How the status item reaches the user. Tray hosts differ in what they draw, and no single way is
/// readable on all of them.
enum class Presentation {
  labelBesideSymbol,  ///< StatusNotifier: square symbol, the host writes the text beside it
  wideFile,           ///< StatusNotifier: symbol and text in one image, read from a file
  widePixmap,         ///< StatusNotifier: symbol and text in one image, sent over the bus
  square,             ///< StatusNotifier: square image that carries a short form of the text
  dockedWide,         ///< a window of our own in the old system tray, as wide as its text
  dockedSquare,       ///< the same, square
};

[[nodiscard]] constexpr bool isDocked(Presentation presentation) {
  return presentation == Presentation::dockedWide || presentation == Presentation::dockedSquare;
}

/// What is known about the desktop around the status item at the moment.
struct TrayFacts {
  std::vector<std::string> desktopNames = {};  ///< of XDG_CURRENT_DESKTOP
  bool notifierWatcher = false;                ///< a StatusNotifierWatcher is on the session bus
  bool notifierHost = false;                   ///< and says that somebody draws its items
  bool indicatorService = false;               ///< the service that feeds indicator panels is there
  bool trayManager = false;                    ///< an old system tray is on the X screen
  bool dockingFailed = false;                  ///< that tray did not take our window

  bool operator==(const TrayFacts&) const = default;
};

/// The one place that decides. Without any host it prepares for the one that will most likely come.
[[nodiscard]] Presentation choosePresentation(const TrayFacts& facts);

/// The names in a value of XDG_CURRENT_DESKTOP.
[[nodiscard]] std::vector<std::string> desktopNames(const std::string& variable);

}  // namespace orvane
