#pragma once

#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

#include "platform/desktop/signal.h"
#include "platform/desktop/status/bus/session_bus.h"
#include "platform/desktop/status/drawing/status_colors.h"

namespace orvane {

/// Whether the user prefers a light or a dark desktop, as the desktop portal tells; panels follow
/// that as a rule. Unknown without a portal, or without a preference.
class DesktopShade final : public QObject {
  Q_OBJECT

 public:
  explicit DesktopShade(SessionBus& bus);

  [[nodiscard]] PanelShade shade() const { return shade_; }
  [[nodiscard]] Registration observe(std::function<void()> listener);

 private Q_SLOTS:
  void handleSetting(const QString& group, const QString& key, const QDBusVariant& value);

 private:
  void follow();
  void ask();
  void setShade(PanelShade shade);

  SessionBus& bus_;
  std::unique_ptr<QDBusServiceWatcher> portal_;
  PanelShade shade_ = PanelShade::unknown;
  Signal<> changed_;
  Registration busObserver_;
};

}  // namespace orvane
