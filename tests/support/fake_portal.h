#pragma once

#include <QDBusVariant>
#include <map>
#include "platform/bus/exported_object.h"

namespace orvane::test {
/// The desktop's portal, whose user prefers light (2), dark (1) or neither (0).
class FakePortal {
 public:
  explicit FakePortal(uint scheme)
      : object_(bus_, "/org/freedesktop/portal/desktop",
                {.interface = "org.freedesktop.portal.Settings",
                 .introspection = {},
                 .methods = {{"Read", {"ss", [this](const auto& names) { return read(names); }}}},
                 .properties = {}}) {
    settings_[{appearance, "color-scheme"}] = scheme;
    bus_.registerService("org.freedesktop.portal.Desktop");
  }
  ~FakePortal() { QDBusConnection::disconnectFromBus("portal"); }

  void prefer(uint scheme) { set(appearance, "color-scheme", scheme); }
  void set(const QString& group, const QString& key, const QVariant& value) {
    settings_[{group, key}] = value;
    object_.sendSignal("SettingChanged", {group, key, wrapped(value)});
  }

  static constexpr auto appearance = "org.freedesktop.appearance";

 private:
  [[nodiscard]] QVariantList read(const QVariantList& names) const {
    const auto found = settings_.find({names.value(0).toString(), names.value(1).toString()});
    if (found == settings_.end()) { return {}; }
    return {wrapped(wrapped(found->second))};
  }
  static QVariant wrapped(const QVariant& value) {
    return QVariant::fromValue(QDBusVariant(value));
  }

  QDBusConnection bus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal");
  std::map<std::pair<QString, QString>, QVariant> settings_;
  ExportedObject object_;
};
}  // namespace orvane::test
