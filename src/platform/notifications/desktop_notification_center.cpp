#include "platform/notifications/desktop_notification_center.h"
#include <QVariantMap>
#include <algorithm>
#include <utility>
#include "platform/text/unicode.h"

namespace orvane {
namespace {
/// The service's name on the bus, which is its interface's name too.
const auto serviceName = QStringLiteral("org.freedesktop.Notifications");
const auto servicePath = QStringLiteral("/org/freedesktop/Notifications");

const auto applicationName = QStringLiteral("Orvane");
const auto applicationId = QStringLiteral("com.quorvex.Orvane");

/// The key under which a click on the notification itself is reported.
const auto defaultAction = QStringLiteral("default");

constexpr int expiresAsTheServiceLikes = -1;

// An older notification is not replaced any more: a second one appears beside it.
constexpr std::size_t mostNotificationsRemembered = 256;

QDBusMessage serviceCall(const QString& method) {
  return QDBusMessage::createMethodCall(serviceName, servicePath, serviceName, method);
}

/// The standard sound is a message's, at normal urgency; the critical one is a warning's, at
/// critical urgency, so that the notification stays until it has been seen.
QVariantMap hintsFor(NotificationSound sound) {
  const bool isCritical = sound == NotificationSound::critical;
  const uchar urgency = isCritical ? 2 : 1;
  return {{QStringLiteral("urgency"), QVariant::fromValue(urgency)},
          {QStringLiteral("sound-name"),
           isCritical ? QStringLiteral("dialog-warning") : QStringLiteral("message-new-instant")},
          {QStringLiteral("desktop-entry"), applicationId}};
}

/// A control character would end the text on its way (NUL), or is an error to a service that reads
/// markup, which then shows nothing.
QString withoutControls(const std::string& text) {
  QString result = QString::fromStdString(text);
  for (QChar& character : result) {
    const bool isControl = character.category() == QChar::Other_Control && character != u'\n';
    if (isControl || character.isNonCharacter()) { character = QChar::ReplacementCharacter; }
  }
  return result;
}

/// The call that shows `request`, made for a service with `capabilities`; `replaces` is the number
/// of the notification that it takes the place of, 0 for none.
QDBusMessage notifyCall(const NotificationRequest& request, uint replaces,
                        const QStringList& capabilities) {
  const QString text = withoutControls(numbersIsolated(request.body));
  const bool readsMarkup = capabilities.contains(QStringLiteral("body-markup"));
  // The label is for services that draw a click on the notification as a button.
  const bool hasActions = capabilities.contains(QStringLiteral("actions"));
  const QStringList actions =
      hasActions ? QStringList{defaultAction, QStringLiteral("Open")} : QStringList();
  QDBusMessage call = serviceCall(QStringLiteral("Notify"));
  call.setArguments({applicationName, replaces, applicationId, withoutControls(request.title),
                     readsMarkup ? text.toHtmlEscaped() : text, actions, hintsFor(request.sound),
                     expiresAsTheServiceLikes});
  return call;
}
}  // namespace

DesktopNotificationCenter::DesktopNotificationCenter(SessionBus& bus,
                                                     std::chrono::milliseconds deadline)
    : bus_(bus),
      deadline_(deadline),
      service_(bus, serviceName, [this](bool) { forgetService(); }),
      activationToken_(bus, servicePath, serviceName, QStringLiteral("ActivationToken"),
                       [this](const QDBusMessage& message) {
                         const QVariantList values = message.arguments();
                         noticeToken(values.value(0).toUInt(), values.value(1).toString());
                       }),
      actionInvoked_(bus, servicePath, serviceName, QStringLiteral("ActionInvoked"),
                     [this](const QDBusMessage& message) {
                       const QVariantList values = message.arguments();
                       noticeAction(values.value(0).toUInt(), values.value(1).toString());
                     }) {}

Task<bool> DesktopNotificationCenter::requestAuthorization() {
  return isServicePresent(bus_, serviceName, deadline_);
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
  const std::string token = std::exchange(token_, std::string());
  if (!isOurs || action != defaultAction || !activated_) { return; }
  activated_(tokenNumber_ == number ? token : std::string());
}

void DesktopNotificationCenter::noticeToken(uint number, const QString& token) {
  tokenNumber_ = number;
  token_ = token.toStdString();
}

Task<BusReply> DesktopNotificationCenter::call(const QDBusMessage& message) {
  return callOnBus(bus_, message, deadline_);
}

Task<QStringList> DesktopNotificationCenter::capabilities() {
  if (capabilities_) { co_return *capabilities_; }
  const QDBusMessage question = serviceCall(QStringLiteral("GetCapabilities"));
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
