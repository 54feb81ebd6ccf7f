#include "platform/bus/session_bus.h"

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QUuid>
#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>

#include "platform/async/completion.h"

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

namespace {

using Abort = CompletionAwaiter<BusReply>::Abort;

BusReply valuesOf(const QDBusMessage& reply) {
  const bool isReply = reply.type() == QDBusMessage::ReplyMessage;
  return isReply ? BusReply(reply.arguments()) : std::nullopt;
}

Abort send(const QDBusConnection& bus, const QDBusMessage& call, int deadline,
           const Completion<BusReply>& completion) {
  const QDBusPendingCall pending = bus.asyncCall(call, deadline);
  // Without a connection the call has already failed, and no watcher ever hears of it.
  if (pending.isFinished()) {
    completion.resolve(valuesOf(pending.reply()));
    return {};
  }
  const auto watcher = std::make_shared<QDBusPendingCallWatcher>(pending);
  QObject::connect(watcher.get(), &QDBusPendingCallWatcher::finished, watcher.get(),
                   [completion](QDBusPendingCallWatcher* ended) {
                     completion.resolve(valuesOf(ended->reply()));
                   });
  // The watcher lives as long as what waits for it.
  return [watcher] { watcher->disconnect(); };
}

}  // namespace

Task<BusReply> callOnBus(QDBusConnection bus, QDBusMessage call,
                         std::chrono::milliseconds deadline) {
  const int milliseconds = static_cast<int>(deadline.count());
  CompletionAwaiter<BusReply>::Start start =
      [bus, call, milliseconds](const Completion<BusReply>& completion) {
        return send(bus, call, milliseconds, completion);
      };
  BusReply reply = co_await untilResolved<BusReply>(std::move(start), std::nullopt);
  co_return reply;
}

}  // namespace orvane
