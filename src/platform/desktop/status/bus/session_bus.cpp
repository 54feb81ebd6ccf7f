#include "platform/desktop/status/bus/session_bus.h"

#include <QUuid>
#include <algorithm>
#include <chrono>
#include <utility>

namespace orvane {
namespace {

using namespace std::chrono_literals;

constexpr ExecutorClock::duration firstRetryDelay = 2s;
constexpr ExecutorClock::duration longestRetryDelay = 60s;

const auto localPath = QStringLiteral("/org/freedesktop/DBus/Local");
const auto localInterface = QStringLiteral("org.freedesktop.DBus.Local");

}  // namespace

SessionBus::SessionBus(Executor& executor) : executor_(executor), retryDelay_(firstRetryDelay) {
  open();
}

SessionBus::~SessionBus() { close(); }

Registration SessionBus::observe(std::function<void()> listener) {
  return changed_.subscribe(std::move(listener));
}

void SessionBus::open() {
  // A name of its own each time: Qt gives a connection that was lost out again under the old one.
  name_ = QStringLiteral("orvane-status-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
  auto opened = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name_);
  if (!opened.isConnected()) {
    QDBusConnection::disconnectFromBus(name_);
    retryLater();
    return;
  }
  opened.connect(QString(), localPath, localInterface, QStringLiteral("Disconnected"), this,
                 SLOT(handleDisconnected()));
  connection_ = std::move(opened);
  retryDelay_ = firstRetryDelay;
  changed_.send();
}

void SessionBus::close() {
  if (!connection_) { return; }
  connection_.reset();
  QDBusConnection::disconnectFromBus(name_);
}

void SessionBus::retryLater() {
  retry_.emplace(executor_, retryDelay_, [this] { open(); });
  retryDelay_ = std::min(2 * retryDelay_, longestRetryDelay);
}

void SessionBus::handleDisconnected() {
  if (!connection_) { return; }
  close();
  changed_.send();
  retryLater();
}

}  // namespace orvane
