#pragma once

#include <QString>

namespace orvane {

/// Where the desktop portal is on the session bus.
inline const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");

}  // namespace orvane
