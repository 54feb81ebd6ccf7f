#pragma once

#include <QPoint>
#include <functional>
#include <optional>
#include <string>

#include "platform/desktop/menu.h"
#include "platform/tray/drawing/status_drawing.h"
#include "platform/tray/status_item.h"

namespace orvane {

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
