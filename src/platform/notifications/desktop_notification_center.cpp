#include "platform/notifications/desktop_notification_center.h"

#include <QDBusMessage>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <algorithm>
#include <utility>

#include "platform/notifications/notification_center.h"

namespace orvane {

/// The service's name on the bus, which is its interface's name too.
[[nodiscard]] QString notificationServiceName();
[[nodiscard]] QString notificationServicePath();
/// The key under which a click on a notification is reported.
[[nodiscard]] QString defaultNotificationAction();

/// A call of the desktop's notification service; `method` is one of its interface.
[[nodiscard]] QDBusMessage notificationServiceCall(const QString& method);

/// The call that shows `request`, made for a service with `capabilities`; `replaces` is the number
/// of the notification that it takes the place of, 0 for none.
///
/// The standard sound is a message's, at normal urgency; the critical one is a warning's, at
/// critical urgency, so that the notification stays until it has been seen.
[[nodiscard]] QDBusMessage notifyCall(const NotificationRequest& request, uint replaces,
                                      const QStringList& capabilities);

namespace {

const auto applicationName = QStringLiteral("Orvane");
const auto applicationId = QStringLiteral("com.quorvex.Orvane");

constexpr int expiresAsTheServiceLikes = -1;

struct Presentation {
  uchar urgency;
  QString soundName;
};

Presentation presentationOf(NotificationSound sound) {
  switch (sound) {
    case NotificationSound::standard:
      break;
    case NotificationSound::critical:
      return {.urgency = 2, .soundName = QStringLiteral("dialog-warning")};
  }
  return {.urgency = 1, .soundName = QStringLiteral("message-new-instant")};
}

QString bodyOf(const NotificationRequest& request, const QStringList& capabilities) {
  const QString body = QString::fromStdString(request.body);
  return capabilities.contains(QStringLiteral("body-markup")) ? body.toHtmlEscaped() : body;
}

/// A click on the notification itself; the label is for services that draw it as a button.
QStringList actionsFor(const QStringList& capabilities) {
  if (!capabilities.contains(QStringLiteral("actions"))) { return {}; }
  return {defaultNotificationAction(), QStringLiteral("Open")};
}

}  // namespace

QString notificationServiceName() { return QStringLiteral("org.freedesktop.Notifications"); }
QString notificationServicePath() { return QStringLiteral("/org/freedesktop/Notifications"); }
QString defaultNotificationAction() { return QStringLiteral("default"); }

QDBusMessage notificationServiceCall(const QString& method) {
  return QDBusMessage::createMethodCall(notificationServiceName(), notificationServicePath(),
                                        notificationServiceName(), method);
}

QDBusMessage notifyCall(const NotificationRequest& request, uint replaces,
                        const QStringList& capabilities) {
  const Presentation presentation = presentationOf(request.sound);
  const QVariantMap hints{
      {QStringLiteral("urgency"), QVariant::fromValue(presentation.urgency)},
      {QStringLiteral("sound-name"), presentation.soundName},
      {QStringLiteral("desktop-entry"), applicationId},
  };
  QDBusMessage call = notificationServiceCall(QStringLiteral("Notify"));
  call.setArguments({applicationName, replaces, applicationId,
                     QString::fromStdString(request.title), bodyOf(request, capabilities),
                     actionsFor(capabilities), hints, expiresAsTheServiceLikes});
  return call;
}

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
