#pragma once

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

#include "platform/async/signal.h"
#include "platform/bus/session_bus.h"

namespace orvane {

// What is listened to on the session bus, over every loss and return of the bus. Nothing here
// waits for it.

/// Hears a signal, from whoever sends it: to listen to the owner of a name, Qt would ask the bus
/// who that is and wait for the answer.
class BusSignal final : public QObject {
  Q_OBJECT

 public:
  BusSignal(SessionBus& bus, QString path, QString interface, QString signal,
            std::function<void(const QDBusMessage&)> handle);

 private Q_SLOTS:
  void hear(const QDBusMessage& message);

 private:
  void listen();

  SessionBus& bus_;
  QString path_;
  QString interface_;
  QString signal_;
  std::function<void(const QDBusMessage&)> handle_;
  Registration busObserver_;
};

/// Follows who owns a name. A service that could be started on demand owns none yet.
class BusName final : public QObject {
  Q_OBJECT

 public:
  /// `changed` runs when the first answer is in, whenever the owner is another one or gone, and
  /// when the bus is lost; never inside this constructor.
  BusName(SessionBus& bus, QString name, std::function<void(bool isOwned)> changed);

  [[nodiscard]] const QString& name() const { return name_; }
  /// The first answer is in, or there is no bus to ask.
  [[nodiscard]] bool isKnown() const { return isKnown_; }
  [[nodiscard]] bool isOwned() const { return isOwned_; }

 private:
  void follow();
  void setOwned(bool isOwned);

  SessionBus& bus_;
  QString name_;
  std::function<void(bool)> changed_;
  std::unique_ptr<QDBusServiceWatcher> watcher_;
  bool isKnown_ = false;
  bool isOwned_ = false;
  Registration busObserver_;
};

}  // namespace orvane
