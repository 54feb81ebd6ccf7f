#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/desktop/menu.h"
#include "platform/tray/drawing/status_colors.h"
#include "platform/tray/status_item.h"

namespace orvane {

/// What the status item shows, without a word about how.
struct StatusContent {
  std::optional<StatusImage> image;
  std::string toolTip;
  PanelShade shade = PanelShade::unknown;  ///< as far as the desktop tells

  bool operator==(const StatusContent&) const = default;
};

/// The tool tip where there is no room for the text itself: it is added unless the tool tip says it
/// already.
[[nodiscard]] inline std::string toolTipWithText(const StatusContent& content) {
  const auto text = content.image ? content.image->text : std::string();
  const bool saysIt = content.toolTip.find(text) != std::string::npos;
  return saysIt ? content.toolTip : content.toolTip + "\n" + text;
}

/// What the user does to the status item, wherever it is drawn.
struct StatusRequests {
  std::function<void()> click;
  std::function<std::optional<Menu>()> menu;  ///< builds it; nothing when there is none now
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
