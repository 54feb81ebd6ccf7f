#pragma once

#include <QDBusMessage>
#include <QString>
#include <QStringList>

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

}  // namespace orvane
