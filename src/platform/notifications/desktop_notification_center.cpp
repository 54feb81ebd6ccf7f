#include "platform/notifications/desktop_notification_center.h"

#include <algorithm>
#include <utility>

#include "platform/notifications/notify_call.h"

namespace orvane {
namespace {

// An older notification is not replaced any more: a second one appears beside it.
constexpr std::size_t mostNotificationsRemembered = 256;

QDBusMessage busCall(const QString& method) {
  const auto bus = QStringLiteral("org.freedesktop.DBus");
  return QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, method);
}

/// The first value of a reply; the empty value where there is none.
template <class T>
T firstValue(const BusReply& reply) {
  return reply && !reply->isEmpty() ? reply->constFirst().value<T>() : T{};
}

}  // namespace

DesktopNotificationCenter::DesktopNotificationCenter(const QDBusConnection& bus,
                                                     std::chrono::milliseconds deadline)
    : bus_(bus), deadline_(deadline), watcher_(notificationServiceName(), bus) {
  connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] { forgetService(); });
  // From whichever sender: naming one would look its owner up, and wait for it.
  bus_.connect(QString(), notificationServicePath(), notificationServiceName(),
               QStringLiteral("ActionInvoked"), this, SLOT(noticeAction(uint, QString)));
}

Task<bool> DesktopNotificationCenter::requestAuthorization() {
  QDBusMessage hasOwner = busCall(QStringLiteral("NameHasOwner"));
  hasOwner << notificationServiceName();
  const BusReply owned = co_await call(hasOwner);
  if (firstValue<bool>(owned)) { co_return true; }
  const QDBusMessage listActivatable = busCall(QStringLiteral("ListActivatableNames"));
  const BusReply activatable = co_await call(listActivatable);
  co_return firstValue<QStringList>(activatable).contains(notificationServiceName());
}

Task<bool> DesktopNotificationCenter::add(NotificationRequest request) {
  const QStringList known = co_await capabilities();
  const QDBusMessage notify = notifyCall(request, numberOf(request.identifier), known);
  const BusReply reply = co_await call(notify);
  if (reply) { remember(std::move(request.identifier), firstValue<uint>(reply)); }
  co_return reply.has_value();
}

void DesktopNotificationCenter::noticeAction(uint number, const QString& action) {
  const bool isOurs = std::ranges::find(shown_, number, &Shown::number) != shown_.end();
  if (isOurs && action == defaultNotificationAction() && activated_) { activated_(); }
}

Task<BusReply> DesktopNotificationCenter::call(const QDBusMessage& message) {
  return callOnBus(bus_, message, deadline_);
}

Task<QStringList> DesktopNotificationCenter::capabilities() {
  if (capabilities_) { co_return *capabilities_; }
  const QDBusMessage question = notificationServiceCall(QStringLiteral("GetCapabilities"));
  const BusReply reply = co_await call(question);
  if (reply) { capabilities_ = firstValue<QStringList>(reply); }
  co_return capabilities_.value_or(QStringList());
}

uint DesktopNotificationCenter::numberOf(const std::string& identifier) const {
  const auto found = std::ranges::find(shown_, identifier, &Shown::identifier);
  return found == shown_.end() ? 0 : found->number;
}

void DesktopNotificationCenter::remember(std::string identifier, uint number) {
  std::erase_if(shown_, [&](const Shown& shown) { return shown.identifier == identifier; });
  shown_.push_back({.identifier = std::move(identifier), .number = number});
  if (shown_.size() > mostNotificationsRemembered) { shown_.pop_front(); }
}

void DesktopNotificationCenter::forgetService() {
  capabilities_.reset();
  shown_.clear();
}

}  // namespace orvane
