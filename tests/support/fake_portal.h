#pragma once

#include <QDBusVariant>
#include "platform/bus/exported_object.h"

namespace orvane::test {
/// The desktop's portal, whose user prefers light (2), dark (1) or neither (0).
class FakePortal {
 public:
  explicit FakePortal(uint scheme)
      : object_(bus_, "/org/freedesktop/portal/desktop",
                {.interface = "org.freedesktop.portal.Settings",
                 .introspection = {},
                 .methods = {{"Read",
                              {"ss", [answer = QVariantList{wrapped(wrapped(scheme))}](
                                         const auto& /*key*/) { return answer; }}}},
                 .properties = {}}) {
    bus_.registerService("org.freedesktop.portal.Desktop");
  }
  ~FakePortal() { QDBusConnection::disconnectFromBus("portal"); }

  void prefer(uint scheme) {
    object_.sendSignal("SettingChanged",
                       {"org.freedesktop.appearance", "color-scheme", wrapped(scheme)});
  }

 private:
  static QVariant wrapped(const QVariant& value) {
    return QVariant::fromValue(QDBusVariant(value));
  }

  QDBusConnection bus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal");
  ExportedObject object_;
};
}  // namespace orvane::test
