#include "platform/notifications/notify_call.h"

#include <QVariantMap>

namespace orvane {
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

}  // namespace orvane
