#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QStringList>
#include <QVariantMap>

namespace orvane {

/// (ia{sv}av): a row, or the menu as a whole with its rows as children.
struct MenuLayoutNode {
  int id = 0;
  QVariantMap properties;
  QList<QDBusVariant> children;
};

/// (ia{sv})
struct MenuRowProperties {
  int id = 0;
  QVariantMap properties;
};
using MenuRowPropertiesList = QList<MenuRowProperties>;

/// (isvu)
struct MenuEvent {
  int id = 0;
  QString name;
  QDBusVariant data;
  uint timestamp = 0;
};
using MenuEvents = QList<MenuEvent>;

/// The keys of a shortcut, one list a chord: aas.
using MenuShortcut = QList<QStringList>;

QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayoutNode& node);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayoutNode& node);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuRowProperties& row);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuRowProperties& row);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event);

/// Must have run before one of these travels over the bus; repeating it is harmless.
void registerMenuTypes();

}  // namespace orvane

Q_DECLARE_METATYPE(orvane::MenuLayoutNode)
Q_DECLARE_METATYPE(orvane::MenuRowProperties)
Q_DECLARE_METATYPE(orvane::MenuRowPropertiesList)
Q_DECLARE_METATYPE(orvane::MenuEvent)
Q_DECLARE_METATYPE(orvane::MenuEvents)
Q_DECLARE_METATYPE(orvane::MenuShortcut)
