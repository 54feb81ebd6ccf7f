#include "platform/bus/session_bus.h"
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QStringList>
#include <QUuid>
#include <algorithm>
#include <utility>
#include "platform/async/completion.h"

namespace orvane {
namespace {
using namespace std::chrono_literals;

constexpr ExecutorClock::duration firstRetryDelay = 2s;
constexpr ExecutorClock::duration longestRetryDelay = 60s;

const auto localPath = QStringLiteral("/org/freedesktop/DBus/Local");
const auto localInterface = QStringLiteral("org.freedesktop.DBus.Local");

BusReply valuesOf(const QDBusMessage& reply) {
  const bool isReply = reply.type() == QDBusMessage::ReplyMessage;
  return isReply ? BusReply(reply.arguments()) : std::nullopt;
}
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
  name_ = QStringLiteral("orvane-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
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

QDBusMessage callOfBusItself(const QString& method, const QVariantList& arguments) {
  const auto bus = QStringLiteral("org.freedesktop.DBus");
  auto call =
      QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, method);
  call.setArguments(arguments);
  return call;
}

QDBusMessage callWithoutStarting(const QString& service, const QString& path,
                                 const QString& interface, const QString& method) {
  auto call = QDBusMessage::createMethodCall(service, path, interface, method);
  call.setAutoStartService(false);
  return call;
}

void callOnBus(const SessionBus& bus, const QDBusMessage& call, QObject* receiver,
               std::function<void(const BusReply&)> handle, std::chrono::milliseconds deadline) {
  const auto failed = QDBusMessage::createError(QDBusError::Disconnected, QString());
  const QDBusPendingCall pending =
      bus.isOpen() ? bus.connection().asyncCall(call, static_cast<int>(deadline.count()))
                   : QDBusPendingCall::fromCompletedCall(failed);
  // No watcher ever hears of a call that has failed already.
  if (pending.isFinished()) {
    const auto tell = [handle = std::move(handle), reply = valuesOf(pending.reply())] {
      handle(reply);
    };
    QMetaObject::invokeMethod(receiver, tell, Qt::QueuedConnection);
    return;
  }
  auto* const watcher = new QDBusPendingCallWatcher(pending, receiver);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, receiver,
                   [handle = std::move(handle)](QDBusPendingCallWatcher* ended) {
                     ended->deleteLater();
                     handle(valuesOf(ended->reply()));
                   });
}

Task<BusReply> callOnBus(const SessionBus& bus, QDBusMessage call,
                         std::chrono::milliseconds deadline) {
  CompletionAwaiter<BusReply>::Start start = [&bus, call,
                                              deadline](const Completion<BusReply>& completion) {
    const auto receiver = std::make_shared<QObject>();
    callOnBus(
        bus, call, receiver.get(),
        [completion](const BusReply& reply) { completion.resolve(reply); }, deadline);
    // The receiver lives as long as what waits for it.
    return [receiver] {};
  };
  BusReply reply = co_await untilResolved<BusReply>(std::move(start), std::nullopt);
  co_return reply;
}

Task<bool> isServicePresent(const SessionBus& bus, QString name,
                            std::chrono::milliseconds deadline) {
  const QDBusMessage hasOwner = callOfBusItself(QStringLiteral("NameHasOwner"), {name});
  const BusReply owned = co_await callOnBus(bus, hasOwner, deadline);
  if (firstValue<bool>(owned)) { co_return true; }
  const QDBusMessage listNames = callOfBusItself(QStringLiteral("ListActivatableNames"));
  const BusReply startable = co_await callOnBus(bus, listNames, deadline);
  co_return firstValue<QStringList>(startable).contains(name);
}

BusSignal::BusSignal(SessionBus& bus, QString path, QString interface, QString signal,
                     std::function<void(const QDBusMessage&)> handle)
    : bus_(bus),
      path_(std::move(path)),
      interface_(std::move(interface)),
      signal_(std::move(signal)),
      handle_(std::move(handle)) {
  busObserver_ = bus_.observe([this] { listen(); });
  listen();
}

void BusSignal::listen() {
  if (!bus_.isOpen()) { return; }
  QDBusConnection connection = bus_.connection();
  connection.connect(QString(), path_, interface_, signal_, this, SLOT(hear(QDBusMessage)));
}

void BusSignal::hear(const QDBusMessage& message) { handle_(message); }

BusName::BusName(SessionBus& bus, QString name, std::function<void(bool)> changed)
    : bus_(bus), name_(std::move(name)), changed_(std::move(changed)) {
  busObserver_ = bus_.observe([this] {
    follow();
    if (!bus_.isOpen()) { changed_(false); }
  });
  follow();
}

void BusName::follow() {
  watcher_.reset();
  isOwned_ = false;
  isKnown_ = !bus_.isOpen();
  if (isKnown_) { return; }
  watcher_ = std::make_unique<QDBusServiceWatcher>(name_, bus_.connection());
  connect(
      watcher_.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
      [this](const QString&, const QString&, const QString& owner) { setOwned(!owner.isEmpty()); });
  // What the watcher has told meanwhile is newer than the answer.
  callOnBus(bus_, callOfBusItself(QStringLiteral("NameHasOwner"), {name_}), watcher_.get(),
            [this](const BusReply& reply) {
              if (!isKnown_) { setOwned(firstValue<bool>(reply)); }
            });
}

void BusName::setOwned(bool isOwned) {
  isOwned_ = isOwned;
  isKnown_ = true;
  changed_(isOwned_);
}
}  // namespace orvane
