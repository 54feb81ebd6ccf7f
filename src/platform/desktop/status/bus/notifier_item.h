#pragma once

#include <QDBusConnection>
#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "platform/desktop/status/bus/exported_object.h"
#include "platform/desktop/status/bus/notifier_types.h"
#include "platform/desktop/status/bus/watcher_registration.h"

namespace orvane {

/// What the StatusNotifierItem tells its hosts.
struct NotifierState {
  QString title;  ///< what a screen reader says
  QString iconName;
  QString iconThemePath;
  NotifierPixmaps iconPixmaps;
  NotifierToolTip toolTip;
  std::optional<QString> label;  ///< only for hosts that write it beside the icon
};

/// What hosts ask of the item. Positions are on the screen, in pixels.
struct NotifierRequests {
  std::function<void()> activate;
  std::function<void(int x, int y)> contextMenu;
  std::function<void(const std::string& token)> activationToken;
};

/// A StatusNotifierItem on the session bus, with its bus name and its registration.
class NotifierItem final {
 public:
  static constexpr const char* itemPath = "/StatusNotifierItem";
  static constexpr const char* menuPath = "/MenuBar";

  NotifierItem(const QDBusConnection& connection, NotifierRequests requests, NotifierState state);
  ~NotifierItem();
  NotifierItem(const NotifierItem&) = delete;
  NotifierItem& operator=(const NotifierItem&) = delete;

  /// Announces exactly what differs from before.
  void setState(NotifierState state);

 private:
  [[nodiscard]] ObjectSurface surface();
  [[nodiscard]] QVariantMap properties() const;

  QDBusConnection connection_;
  QString busName_;
  NotifierRequests requests_;
  NotifierState state_;
  ExportedObject object_;
  std::optional<WatcherRegistration> registration_;
};

}  // namespace orvane
