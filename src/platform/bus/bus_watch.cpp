#include "platform/bus/bus_watch.h"

#include <utility>

namespace orvane {

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
