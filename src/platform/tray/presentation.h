#pragma once

#include <QPoint>
#include <functional>
#include <optional>
#include <string>
#include <vector>
#include "platform/desktop/desktop_application.h"
#include "platform/tray/drawing/status_drawing.h"
#include "platform/tray/status_item.h"

namespace orvane {
/// How the status item reaches the user.
enum class Presentation {
  labelBesideSymbol,  ///< StatusNotifier: square symbol, the host writes the text beside it
  labelBesideFile,    ///< the same, with a symbol that is read from a file
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
  bool verticalTray = false;                   ///< and in a vertical panel
  bool dockingFailed = false;                  ///< it did not take our window

  bool operator==(const TrayFacts&) const = default;
};

/// The one place that knows what tray hosts draw. No single way is readable on all of them, and two
/// at once show the text twice or hide the symbol, so each host gets the one that suits it:
///
/// - GNOME's indicator extension and Unity write a label of their own beside a square icon:
///   `labelBesideSymbol`.
/// - Panels that the indicator service feeds (MATE's indicator applet) ignore pixmaps that come
///   over the bus and crop wide pictures in vertical panels, but write a label in the panel's own
///   colour, turned where the panel is vertical: `labelBesideFile`.
/// - MATE's notification area, and waybar (on sway, Hyprland, river, niri), draw a wide pixmap as
///   it is: `widePixmap`.
/// - Xfce's panel squeezes wide images of all these kinds and ignores labels, but takes a window
///   of our own as wide as it wants to be: `dockedWide`. Where it is told to make icons square,
///   that window shows the square image in what it gets. When docking fails the item goes to the
///   notifier host that this panel is as well.
/// - Plasma, LXQt and hosts that we do not know squeeze wide images and ignore labels: `square`,
///   with the whole text in the tool tip.
/// - Where there is only an old tray (tint2), a wide window is cropped: `dockedSquare`. MATE's old
///   tray takes a wide one.
/// - In vertical panels there is no room beside the symbol: `square` and `dockedSquare`.
///
/// Without any host the item prepares for the one that will most likely come.
[[nodiscard]] Presentation choosePresentation(const TrayFacts& facts);

/// The names in a value of XDG_CURRENT_DESKTOP.
[[nodiscard]] std::vector<std::string> desktopNames(const std::string& variable);

/// What the status item shows, without a word about how.
struct StatusContent {
  std::optional<StatusImage> image;
  std::string toolTip;
  PanelShade shade = PanelShade::unknown;  ///< as far as the desktop tells

  bool operator==(const StatusContent&) const = default;

  /// The tool tip where there is no room for the text itself: it is added unless the tool tip says
  /// it already.
  [[nodiscard]] std::string toolTipWithText() const {
    const auto text = image ? image->text : std::string();
    const bool saysIt = toolTip.find(text) != std::string::npos;
    return saysIt ? toolTip : toolTip + "\n" + text;
  }
};

/// What the user does to the status item, wherever it is drawn.
struct StatusRequests {
  std::function<void()> click;
  /// Builds the menu for a host that shows it; nothing when there is none now.
  std::function<std::optional<Menu>()> menu;
  /// Shows the menu in a window of our own, beside a point of the screen.
  std::function<void(const QPoint& position)> popUpMenu;
  /// The token with which the next window may come to the front.
  std::function<void(const std::string& token)> activationToken;
};

/// Brings the status item to one kind of host. It appears with the first `show` and goes with the
/// object.
class StatusPresenter {
 public:
  virtual ~StatusPresenter() = default;

  virtual void show(const StatusContent& content) = 0;
};
}  // namespace orvane
