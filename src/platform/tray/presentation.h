#pragma once

#include <string>
#include <vector>

namespace orvane {

/// How the status item reaches the user.
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

/// The one place that knows what tray hosts draw. No single way is readable on all of them, and two
/// at once show the text twice or hide the symbol, so each host gets the one that suits it:
///
/// - GNOME's indicator extension and Unity write a label of their own beside a square icon:
///   `labelBesideSymbol`.
/// - Panels that the indicator service feeds (MATE's indicator applet) ignore pixmaps that come
///   over the bus, and draw a wide picture that they read from a file: `wideFile`.
/// - MATE's notification area, and waybar (on sway, Hyprland, river, niri), draw a wide pixmap as
///   it is: `widePixmap`.
/// - Xfce's panel squeezes wide images of all these kinds and ignores labels, but takes a window
///   of our own as wide as it wants to be, unless its icons are set to be square: `dockedWide`.
///   When docking fails the item goes to the notifier host that this panel is as well.
/// - Plasma, LXQt and hosts that we do not know squeeze wide images and ignore labels: `square`,
///   with the whole text in the tool tip.
/// - Where there is only an old tray (tint2), a wide window is cropped: `dockedSquare`. MATE's old
///   tray takes a wide one.
///
/// Without any host the item prepares for the one that will most likely come.
[[nodiscard]] Presentation choosePresentation(const TrayFacts& facts);

/// The names in a value of XDG_CURRENT_DESKTOP.
[[nodiscard]] std::vector<std::string> desktopNames(const std::string& variable);

}  // namespace orvane
