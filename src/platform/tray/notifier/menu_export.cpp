#include "platform/tray/notifier/menu_export.h"

#include <QDBusMetaType>
#include <QGuiApplication>
#include <QStringList>
#include <QVariantMap>
#include <algorithm>
#include <utility>

namespace orvane {

/// What the exported menu says about itself to those who introspect it.
inline constexpr const char* menuIntrospection = R"xml(
  <property name="Version" type="u" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="TextDirection" type="s" access="read"/>
  <property name="IconThemePath" type="as" access="read"/>
  <method name="GetLayout">
    <arg name="parentId" type="i" direction="in"/>
    <arg name="recursionDepth" type="i" direction="in"/>
    <arg name="propertyNames" type="as" direction="in"/>
    <arg name="revision" type="u" direction="out"/>
    <arg name="layout" type="(ia{sv}av)" direction="out"/>
  </method>
  <method name="GetGroupProperties">
    <arg name="ids" type="ai" direction="in"/>
    <arg name="propertyNames" type="as" direction="in"/>
    <arg name="properties" type="a(ia{sv})" direction="out"/>
  </method>
  <method name="GetProperty">
    <arg name="id" type="i" direction="in"/>
    <arg name="name" type="s" direction="in"/>
    <arg name="value" type="v" direction="out"/>
  </method>
  <method name="Event">
    <arg name="id" type="i" direction="in"/>
    <arg name="eventId" type="s" direction="in"/>
    <arg name="data" type="v" direction="in"/>
    <arg name="timestamp" type="u" direction="in"/>
  </method>
  <method name="EventGroup">
    <arg name="events" type="a(isvu)" direction="in"/>
    <arg name="idErrors" type="ai" direction="out"/>
  </method>
  <method name="AboutToShow">
    <arg name="id" type="i" direction="in"/>
    <arg name="needUpdate" type="b" direction="out"/>
  </method>
  <method name="AboutToShowGroup">
    <arg name="ids" type="ai" direction="in"/>
    <arg name="updatesNeeded" type="ai" direction="out"/>
    <arg name="idErrors" type="ai" direction="out"/>
  </method>
  <signal name="ItemsPropertiesUpdated">
    <arg name="updatedProps" type="a(ia{sv})"/><arg name="removedProps" type="a(ias)"/>
  </signal>
  <signal name="LayoutUpdated">
    <arg name="revision" type="u"/><arg name="parent" type="i"/>
  </signal>
  <signal name="ItemActivationRequested">
    <arg name="id" type="i"/><arg name="timestamp" type="u"/>
  </signal>
)xml";

/// How the menu's rows look on the bus. A list of property names limits what is given; an empty
/// one asks for all.

/// One row: its label and shortcut, or that it is a separator, and whether it can be chosen.
[[nodiscard]] QVariantMap rowProperties(const MenuItem& item, const QStringList& names);
/// The same for the menu as a whole.
[[nodiscard]] QVariantMap menuProperties(const QStringList& names);
/// What a property counts as where it is not given.
[[nodiscard]] QVariant defaultProperty(const QString& name);

/// The part of the layout from `parent` (zero: the whole menu) downwards; `depth` zero leaves the
/// children out, any other depth takes all of them, for there is one level only. An unknown parent
/// gives a node without anything.
[[nodiscard]] MenuLayoutNode menuLayout(const MenuModel& model, int parent, int depth,
                                        const QStringList& names);

/// The properties of the rows with these numbers, of all rows when there are none. Unknown numbers
/// are left out.
[[nodiscard]] MenuRowPropertiesList groupProperties(const MenuModel& model, const QList<int>& ids,
                                                    const QStringList& names);

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

namespace {

bool looksLike(const MenuItem& a, const MenuItem& b) {
  return a.title == b.title && a.enabled == b.enabled && a.keyEquivalent == b.keyEquivalent;
}

}  // namespace

bool MenuModel::replace(Menu menu) {
  auto old = std::exchange(rows_, {});
  bool differs = old.size() != menu.items.size();
  auto candidates = old;
  for (auto& item : menu.items) {
    // Rows with the same title (separators, above all) take the numbers in their order.
    const auto known =
        std::ranges::find(candidates, item.title, [](const Row& row) { return row.item.title; });
    int id = 0;
    if (known == candidates.end()) {
      id = ++lastId_;
    } else {
      id = known->id;
      candidates.erase(known);
    }
    const auto at = rows_.size();
    differs = differs || old[at].id != id || !looksLike(old[at].item, item);
    rows_.push_back({.id = id, .item = std::move(item)});
  }
  if (differs) { ++revision_; }
  return differs;
}

const MenuItem* MenuModel::find(int id) const {
  const auto found = std::ranges::find(rows_, id, &Row::id);
  return found == rows_.end() ? nullptr : &found->item;
}

namespace {

/// An underscore would otherwise underline the letter after it.
QString label(const std::string& title) {
  return QString::fromStdString(title).replace(u'_', QStringLiteral("__"));
}

QVariant shortcut(const std::string& keyEquivalent) {
  const auto key = QString::fromStdString(keyEquivalent).toUpper();
  return QVariant::fromValue(MenuShortcut{{QStringLiteral("Control"), key}});
}

QVariantMap limited(QVariantMap properties, const QStringList& names) {
  if (names.isEmpty()) { return properties; }
  properties.removeIf([&](const auto& property) { return !names.contains(property.key()); });
  return properties;
}

QVariantMap allRowProperties(const MenuItem& item) {
  if (item.isSeparator()) { return {{QStringLiteral("type"), QStringLiteral("separator")}}; }
  QVariantMap properties{{QStringLiteral("label"), label(item.title)}};
  if (!item.enabled) { properties.insert(QStringLiteral("enabled"), false); }
  if (!item.keyEquivalent.empty()) {
    properties.insert(QStringLiteral("shortcut"), shortcut(item.keyEquivalent));
  }
  return properties;
}

MenuLayoutNode rowNode(const MenuModel::Row& row, const QStringList& names) {
  return {.id = row.id, .properties = rowProperties(row.item, names), .children = {}};
}

}  // namespace

QVariantMap rowProperties(const MenuItem& item, const QStringList& names) {
  return limited(allRowProperties(item), names);
}

QVariantMap menuProperties(const QStringList& names) {
  return limited({{QStringLiteral("children-display"), QStringLiteral("submenu")}}, names);
}

QVariant defaultProperty(const QString& name) {
  if (name == QStringLiteral("enabled") || name == QStringLiteral("visible")) { return true; }
  if (name == QStringLiteral("type")) { return QStringLiteral("standard"); }
  return QString();
}

MenuLayoutNode menuLayout(const MenuModel& model, int parent, int depth, const QStringList& names) {
  if (const auto* item = model.find(parent)) {
    return {.id = parent, .properties = rowProperties(*item, names), .children = {}};
  }
  MenuLayoutNode node{.id = parent, .properties = {}, .children = {}};
  if (parent != 0) { return node; }
  node.properties = menuProperties(names);
  if (depth == 0) { return node; }
  for (const auto& row : model.rows()) {
    node.children.append(QDBusVariant(QVariant::fromValue(rowNode(row, names))));
  }
  return node;
}

MenuRowPropertiesList groupProperties(const MenuModel& model, const QList<int>& ids,
                                      const QStringList& names) {
  MenuRowPropertiesList list;
  if (ids.isEmpty() || ids.contains(0)) {
    list.append({.id = 0, .properties = menuProperties(names)});
  }
  for (const auto& row : model.rows()) {
    if (!ids.isEmpty() && !ids.contains(row.id)) { continue; }
    list.append({.id = row.id, .properties = rowProperties(row.item, names)});
  }
  return list;
}

namespace {

QVariantMap surfaceProperties() {
  return {{QStringLiteral("Version"), 3U},
          {QStringLiteral("Status"), QStringLiteral("normal")},
          {QStringLiteral("TextDirection"), QGuiApplication::layoutDirection() == Qt::RightToLeft
                                                ? QStringLiteral("rtl")
                                                : QStringLiteral("ltr")},
          {QStringLiteral("IconThemePath"), QStringList()}};
}

}  // namespace

MenuExport::MenuExport(const QDBusConnection& connection, const QString& path, Executor& executor,
                       Source source)
    : executor_(executor), source_(std::move(source)), object_(connection, path, surface()) {}

void MenuExport::contentMayHaveChanged() {
  if (wasRead_) { rebuild(); }
}

bool MenuExport::rebuild() {
  const bool changed = model_.replace(source_().value_or(Menu{}));
  if (changed && wasRead_) {
    object_.sendSignal(QStringLiteral("LayoutUpdated"), {model_.revision(), 0});
  }
  return changed;
}

QVariantList MenuExport::layout(const QVariantList& arguments) {
  // A host that reads without announcing the menu first gets today's menu all the same. It may read
  // again for the signal of this change, and finds nothing new then.
  rebuild();
  wasRead_ = true;
  const auto node = menuLayout(model_, arguments.at(0).toInt(), arguments.at(1).toInt(),
                               arguments.at(2).toStringList());
  return {model_.revision(), QVariant::fromValue(node)};
}

QVariantList MenuExport::aboutToShow(const QVariantList& arguments) {
  return {arguments.at(0).toInt() == 0 && rebuild()};
}

QVariantList MenuExport::aboutToShowGroup(const QVariantList& arguments) {
  QList<int> changed;
  QList<int> missing;
  for (const int id : qdbus_cast<QList<int>>(arguments.at(0))) {
    if (id == 0 && rebuild()) { changed.append(id); }
    if (id != 0 && !model_.find(id)) { missing.append(id); }
  }
  return {QVariant::fromValue(changed), QVariant::fromValue(missing)};
}

QVariantList MenuExport::eventGroup(const QVariantList& arguments) {
  QList<int> missing;
  for (const auto& event : qdbus_cast<MenuEvents>(arguments.at(0))) {
    if (!handleEvent(event.id, event.name)) { missing.append(event.id); }
  }
  return {QVariant::fromValue(missing)};
}

bool MenuExport::handleEvent(int id, const QString& name) {
  if (id == 0) {
    if (name == QStringLiteral("opened")) { rebuild(); }
    return true;
  }
  const auto* const item = model_.find(id);
  if (!item) { return false; }
  if (name == QStringLiteral("clicked") && item->enabled && item->action) {
    executor_.post(item->action);
  }
  return true;
}

QVariantList MenuExport::property(const QVariantList& arguments) const {
  const auto name = arguments.at(1).toString();
  const auto node = menuLayout(model_, arguments.at(0).toInt(), 0, {name});
  const auto value = node.properties.value(name, defaultProperty(name));
  return {QVariant::fromValue(QDBusVariant(value))};
}

ObjectSurface MenuExport::surface() {
  const auto call = [this](QVariantList (MenuExport::*member)(const QVariantList&)) {
    return [this, member](const QVariantList& arguments) { return (this->*member)(arguments); };
  };
  return {.interface = QStringLiteral("com.canonical.dbusmenu"),
          .introspection = QLatin1String(menuIntrospection),
          .methods = {{QStringLiteral("GetLayout"),
                       {QStringLiteral("iias"), call(&MenuExport::layout)}},
                      {QStringLiteral("AboutToShow"),
                       {QStringLiteral("i"), call(&MenuExport::aboutToShow)}},
                      {QStringLiteral("AboutToShowGroup"),
                       {QStringLiteral("ai"), call(&MenuExport::aboutToShowGroup)}},
                      {QStringLiteral("EventGroup"),
                       {QStringLiteral("a(isvu)"), call(&MenuExport::eventGroup)}},
                      {QStringLiteral("Event"),
                       {QStringLiteral("isvu"),
                        [this](const QVariantList& arguments) {
                          handleEvent(arguments.at(0).toInt(), arguments.at(1).toString());
                          return QVariantList();
                        }}},
                      {QStringLiteral("GetProperty"),
                       {QStringLiteral("is"),
                        [this](const QVariantList& arguments) { return property(arguments); }}},
                      {QStringLiteral("GetGroupProperties"),
                       {QStringLiteral("aias"),
                        [this](const QVariantList& arguments) {
                          const auto list =
                              groupProperties(model_, qdbus_cast<QList<int>>(arguments.at(0)),
                                              arguments.at(1).toStringList());
                          return QVariantList{QVariant::fromValue(list)};
                        }}}},
          .properties = surfaceProperties};
}

}  // namespace orvane
