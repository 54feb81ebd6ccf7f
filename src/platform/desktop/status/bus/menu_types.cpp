#include "platform/desktop/status/bus/menu_types.h"

#include <QDBusMetaType>

namespace orvane {

QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayoutNode& node) {
  argument.beginStructure();
  argument << node.id << node.properties << node.children;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayoutNode& node) {
  argument.beginStructure();
  argument >> node.id >> node.properties >> node.children;
  argument.endStructure();
  return argument;  // NOLINT(bugprone-return-const-ref-from-parameter): as Qt asks for it
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuRowProperties& row) {
  argument.beginStructure();
  argument << row.id << row.properties;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuRowProperties& row) {
  argument.beginStructure();
  argument >> row.id >> row.properties;
  argument.endStructure();
  return argument;  // NOLINT(bugprone-return-const-ref-from-parameter): as Qt asks for it
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event) {
  argument.beginStructure();
  argument << event.id << event.name << event.data << event.timestamp;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event) {
  argument.beginStructure();
  argument >> event.id >> event.name >> event.data >> event.timestamp;
  argument.endStructure();
  return argument;  // NOLINT(bugprone-return-const-ref-from-parameter): as Qt asks for it
}

void registerMenuTypes() {
  qDBusRegisterMetaType<MenuLayoutNode>();
  qDBusRegisterMetaType<MenuRowProperties>();
  qDBusRegisterMetaType<MenuRowPropertiesList>();
  qDBusRegisterMetaType<MenuEvent>();
  qDBusRegisterMetaType<MenuEvents>();
  qDBusRegisterMetaType<MenuShortcut>();
  qDBusRegisterMetaType<QList<QDBusVariant>>();
  qDBusRegisterMetaType<QList<int>>();
}

}  // namespace orvane
