#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QStringList>
#include <QVariantMap>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "platform/async/executor.h"
#include "platform/bus/exported_object.h"
#include "platform/desktop/menu.h"

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

/// The menu as hosts last saw it. A row that is still there in the next menu keeps its number, so
/// that a click into a menu that is open meanwhile means the row that the user saw.
class MenuModel {
 public:
  struct Row {
    int id;  ///< above zero, which stands for the menu as a whole
    MenuItem item;
  };

  /// Takes the rows of `menu`; true when a host would see a difference.
  bool replace(Menu menu);

  /// Grows with every difference.
  [[nodiscard]] std::uint32_t revision() const { return revision_; }
  [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
  [[nodiscard]] const MenuItem* find(int id) const;

 private:
  std::uint32_t revision_ = 1;
  int lastId_ = 0;
  std::vector<Row> rows_;
};

/// The item's menu on the session bus (com.canonical.dbusmenu). It is built afresh whenever a host
/// is about to show it. Actions run after the host has its reply.
class MenuExport final {
 public:
  /// Builds the menu; nothing when there is none now.
  using Source = std::function<std::optional<Menu>()>;

  MenuExport(const QDBusConnection& connection, const QString& path, Executor& executor,
             Source source);
  MenuExport(const MenuExport&) = delete;
  MenuExport& operator=(const MenuExport&) = delete;

  /// What the menu says may have changed. Hosts that read it before are told when it has: some
  /// never ask again before they show it.
  void contentMayHaveChanged();

 private:
  [[nodiscard]] ObjectSurface surface();
  bool rebuild();
  QVariantList layout(const QVariantList& arguments);
  QVariantList aboutToShow(const QVariantList& arguments);
  QVariantList aboutToShowGroup(const QVariantList& arguments);
  QVariantList eventGroup(const QVariantList& arguments);
  [[nodiscard]] QVariantList property(const QVariantList& arguments) const;
  bool handleEvent(int id, const QString& name);

  Executor& executor_;
  Source source_;
  MenuModel model_;
  bool wasRead_ = false;
  ExportedObject object_;
};

}  // namespace orvane

Q_DECLARE_METATYPE(orvane::MenuLayoutNode)
Q_DECLARE_METATYPE(orvane::MenuRowProperties)
Q_DECLARE_METATYPE(orvane::MenuRowPropertiesList)
Q_DECLARE_METATYPE(orvane::MenuEvent)
Q_DECLARE_METATYPE(orvane::MenuEvents)
Q_DECLARE_METATYPE(orvane::MenuShortcut)
