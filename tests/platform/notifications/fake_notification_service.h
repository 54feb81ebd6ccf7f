#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QVariantMap>
#include <vector>
#include <gtest/gtest.h>

namespace orvane::test {
/// One call of Notify.
struct Notified {
  QString application;
  uint replaces = 0;
  QString icon;
  QString summary;
  QString body;
  QStringList actions;
  QVariantMap hints;
  int expires = 0;
};

/// A desktop's notification service that remembers what it was given. It owns the service's name
/// on the bus as long as it lives, over a connection of its own.
class FakeNotificationService final : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public:
  explicit FakeNotificationService(QStringList capabilities = {})
      : capabilities_(std::move(capabilities)) {
    connection_.registerObject("/org/freedesktop/Notifications", this,
                               QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    EXPECT_TRUE(connection_.registerService("org.freedesktop.Notifications")) << "another one runs";
  }
  ~FakeNotificationService() override { QDBusConnection::disconnectFromBus("fake service"); }

  std::vector<Notified> notified;
  bool answers = true;  ///< otherwise a call waits for ever

  void click(uint number, const QString& action, const QString& token = {}) {
    if (!token.isEmpty()) { Q_EMIT ActivationToken(number, token); }
    Q_EMIT ActionInvoked(number, action);
  }

 public Q_SLOTS:
  QStringList GetCapabilities() { return capabilities_; }
  uint Notify(const QString& application, uint replaces, const QString& icon,
              const QString& summary, const QString& body, const QStringList& actions,
              const QVariantMap& hints, int expires) {
    setDelayedReply(!answers);
    notified.push_back({application, replaces, icon, summary, body, actions, hints, expires});
    return replaces == 0 ? static_cast<uint>(notified.size()) : replaces;
  }

 Q_SIGNALS:
  void ActivationToken(uint number, const QString& token);
  void ActionInvoked(uint number, const QString& action);

 private:
  QStringList capabilities_;
  QDBusConnection connection_ =
      QDBusConnection::connectToBus(QDBusConnection::SessionBus, "fake service");
};
}  // namespace orvane::test
