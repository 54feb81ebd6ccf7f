#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include "platform/async/executor.h"
#include "platform/async/signal.h"
#include "platform/async/task.h"
#include "platform/async/timer.h"

namespace orvane {
/// A connection of our own to the session bus. A bus that is missing or goes away is looked for
/// again, at growing intervals, for as long as this exists. Main thread only, like everything here.
class SessionBus final : public QObject {
  Q_OBJECT

 public:
  explicit SessionBus(Executor& executor);
  ~SessionBus() override;
  SessionBus(const SessionBus&) = delete;
  SessionBus& operator=(const SessionBus&) = delete;

  [[nodiscard]] bool isOpen() const { return connection_.has_value(); }
  /// Only while it is open.
  [[nodiscard]] const QDBusConnection& connection() const { return *connection_; }
  /// Tells when the connection opened or was lost. Whatever was exported on it is gone then.
  [[nodiscard]] Registration observe(std::function<void()> listener);

 private Q_SLOTS:
  void handleDisconnected();

 private:
  void open();
  void close();
  void retryLater();

  Executor& executor_;
  QString name_;
  std::optional<QDBusConnection> connection_;
  ExecutorClock::duration retryDelay_;
  std::optional<OneShotTimer> retry_;
  Signal<> changed_;
};

/// The values of a reply; nothing where there was none: an error, no bus, no answer within the
/// deadline, or the calling task was cancelled.
using BusReply = std::optional<QVariantList>;

/// The first value of a reply; the empty value where there is none.
template <class T>
[[nodiscard]] T firstValue(const BusReply& reply) {
  return reply && !reply->isEmpty() ? reply->constFirst().value<T>() : T{};
}

/// How long the bus waits for an answer where nobody says otherwise.
inline constexpr std::chrono::milliseconds usualBusDeadline{25000};

/// A call of the bus itself.
[[nodiscard]] QDBusMessage callOfBusItself(const QString& method,
                                           const QVariantList& arguments = {});

/// A call that reaches the service only if it runs already.
[[nodiscard]] QDBusMessage callWithoutStarting(const QString& service, const QString& path,
                                               const QString& interface, const QString& method);

/// Sends the call and runs `handle` with its reply, once and never inside this function, unless
/// `receiver` is gone by then. The deadline includes the start of a service that the bus can start.
void callOnBus(const SessionBus& bus, const QDBusMessage& call, QObject* receiver,
               std::function<void(const BusReply&)> handle,
               std::chrono::milliseconds deadline = usualBusDeadline);

/// The same for a task. The bus outlives it.
[[nodiscard]] Task<BusReply> callOnBus(const SessionBus& bus, QDBusMessage call,
                                       std::chrono::milliseconds deadline = usualBusDeadline);

/// Whether a service runs or the bus can start it: calls of it will not be in vain. The deadline is
/// for each of the two questions.
[[nodiscard]] Task<bool> isServicePresent(const SessionBus& bus, QString name,
                                          std::chrono::milliseconds deadline = usualBusDeadline);

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
