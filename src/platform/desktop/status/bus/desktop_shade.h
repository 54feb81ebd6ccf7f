#pragma once

#include <QDBusServiceWatcher>
#include <functional>
#include <memory>

#include "platform/desktop/portal/color_preference.h"
#include "platform/desktop/signal.h"
#include "platform/desktop/status/bus/session_bus.h"
#include "platform/desktop/status/drawing/status_colors.h"

namespace orvane {

/// Whether the user prefers a light or a dark desktop, as the desktop portal tells; panels follow
/// that as a rule. Unknown without a portal, or without a preference. Starts no portal; one that
/// starts later is asked then.
class DesktopShade {
 public:
  explicit DesktopShade(SessionBus& bus);

  [[nodiscard]] PanelShade shade() const { return shade_; }
  [[nodiscard]] Registration observe(std::function<void()> listener);

 private:
  void follow();
  void ask();
  void setShade(PanelShade shade);

  SessionBus& bus_;
  std::unique_ptr<PortalColorPreference> preference_;
  std::unique_ptr<QDBusServiceWatcher> portal_;
  PanelShade shade_ = PanelShade::unknown;
  Signal<> changed_;
  Registration busObserver_;
};

}  // namespace orvane
