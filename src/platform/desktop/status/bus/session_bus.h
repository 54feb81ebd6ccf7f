#pragma once

#include <QDBusConnection>
#include <QObject>
#include <functional>
#include <optional>

#include "platform/async/executor.h"
#include "platform/async/timer.h"
#include "platform/desktop/signal.h"

namespace orvane {

/// A connection of our own to the session bus. A bus that is missing or goes away is looked for
/// again, at growing intervals, for as long as this exists.
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

}  // namespace orvane
