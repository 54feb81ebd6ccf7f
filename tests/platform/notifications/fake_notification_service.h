#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <vector>

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
  uint number = 0;
};

/// A desktop's notification service that remembers what it was given. It owns the service's name
/// on the bus as long as it lives, over a connection of its own.
class FakeNotificationService final : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public:
  explicit FakeNotificationService(QStringList capabilities = {}, uint firstNumber = 1);
  ~FakeNotificationService() override;

  std::vector<Notified> notified;
  int capabilitiesAsked = 0;
  bool refuses = false;  ///< Notify answers with an error
  bool answers = true;   ///< otherwise a call waits for ever

  void click(uint number, const QString& action) { Q_EMIT ActionInvoked(number, action); }

 public Q_SLOTS:
  QStringList GetCapabilities();
  uint Notify(const QString& application, uint replaces, const QString& icon,
              const QString& summary, const QString& body, const QStringList& actions,
              const QVariantMap& hints, int expires);

 Q_SIGNALS:
  void ActionInvoked(uint number, const QString& action);

 private:
  QDBusConnection connection_;
  QStringList capabilities_;
  uint nextNumber_;
};

}  // namespace orvane::test
