#include "platform/tray/notifier/menu_export.h"
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QGuiApplication>
#include <algorithm>
#include <utility>
#include "platform/text/unicode.h"

namespace orvane {
// How the exported menu works. A host keeps a copy of the menu and knows its rows by number. The
// menu has one level: number 0 is the menu as a whole, its rows count from 1.
//
// - The copy is kept fresh in two ways. Hosts announce that they are about to show the menu:
//   LXQt and Plasma call AboutToShow and then send the event "opened", MATE's notification area
//   sends them the other way round, Xfce calls AboutToShowGroup. Each of them makes us build the
//   menu again, and the reply says whether the host has to read it anew. Hosts that announce
//   nothing are told by the signal LayoutUpdated whenever what the status item shows has changed.
// - Reading (GetLayout) builds the menu as well, so that nobody ever reads an old one.
// - The revision grows with each difference that a host can see; actions alone are none.
// - A row that is still there in the next menu keeps its number, and a number is never given out
//   twice, so that a click into a menu that is open meanwhile means the row that the user saw.
// - A chosen row arrives as the event "clicked": by EventGroup from Xfce, by Event from the others.
//   Its action runs after the host has its reply, for it may take the menu off the bus.

namespace {
/// What the menu says about itself to those who introspect it.
constexpr auto introspection = R"xml(
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

/// (ia{sv})
struct RowProperties {
  int id = 0;
  QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const RowProperties& row) {
  argument.beginStructure();
  argument << row.id << row.properties;
  argument.endStructure();
  return argument;
}

/// Asked for by Qt; these rows are only sent.
const QDBusArgument& operator>>(const QDBusArgument& argument, RowProperties& /*row*/) {
  return argument;  // NOLINT(bugprone-return-const-ref-from-parameter): as Qt asks for it
}

/// The keys of a shortcut, one list a chord: aas.
using Shortcut = QList<QStringList>;

bool looksLike(const MenuItem& a, const MenuItem& b) {
  return a.title == b.title && a.enabled == b.enabled && a.keyEquivalent == b.keyEquivalent;
}

QVariantMap rowProperties(const MenuItem& item) {
  if (item.isSeparator()) { return {{QStringLiteral("type"), QStringLiteral("separator")}}; }
  // An underscore would otherwise underline the letter after it.
  const auto label =
      QString::fromStdString(numbersIsolated(item.title)).replace(u'_', QStringLiteral("__"));
  QVariantMap properties{{QStringLiteral("label"), label}};
  if (!item.enabled) { properties.insert(QStringLiteral("enabled"), false); }
  if (!item.keyEquivalent.empty()) {
    const auto key = QString::fromStdString(item.keyEquivalent).toUpper();
    properties.insert(QStringLiteral("shortcut"),
                      QVariant::fromValue(Shortcut{{QStringLiteral("Control"), key}}));
  }
  return properties;
}

/// What a property counts as where it is not given.
QVariant defaultProperty(const QString& name) {
  if (name == QStringLiteral("enabled") || name == QStringLiteral("visible")) { return true; }
  if (name == QStringLiteral("type")) { return QStringLiteral("standard"); }
  return QString();
}

QVariantMap surfaceProperties() {
  const bool isRightToLeft = QGuiApplication::layoutDirection() == Qt::RightToLeft;
  return {{QStringLiteral("Version"), 3U},
          {QStringLiteral("Status"), QStringLiteral("normal")},
          {QStringLiteral("TextDirection"),
           isRightToLeft ? QStringLiteral("rtl") : QStringLiteral("ltr")},
          {QStringLiteral("IconThemePath"), QStringList()}};
}
}  // namespace

MenuExport::MenuExport(const QDBusConnection& connection, const QString& path, Executor& executor,
                       Source source)
    : executor_(executor), source_(std::move(source)), object_(connection, path, surface()) {
  qDBusRegisterMetaType<RowProperties>();
  qDBusRegisterMetaType<QList<RowProperties>>();
  qDBusRegisterMetaType<Shortcut>();
}

void MenuExport::contentMayHaveChanged() {
  if (wasRead_) { rebuild(); }
}

bool MenuExport::rebuild() {
  const bool differs = takeRows(source_().value_or(Menu{}));
  if (differs) { ++revision_; }
  if (differs && wasRead_) { object_.sendSignal(QStringLiteral("LayoutUpdated"), {revision_, 0}); }
  return differs;
}

bool MenuExport::takeRows(Menu menu) {
  const auto old = std::exchange(rows_, {});
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
  return differs;
}

const MenuItem* MenuExport::find(int id) const {
  const auto found = std::ranges::find(rows_, id, &Row::id);
  return found == rows_.end() ? nullptr : &found->item;
}

/// Those of them that are named; no names ask for all.
QVariantMap MenuExport::propertiesOf(int id, const QStringList& names) const {
  QVariantMap properties;
  if (const auto* const item = find(id)) {
    properties = rowProperties(*item);
  } else if (id == 0) {
    properties.insert(QStringLiteral("children-display"), QStringLiteral("submenu"));
  }
  properties.removeIf(
      [&](const auto& property) { return !names.isEmpty() && !names.contains(property.key()); });
  return properties;
}

/// (ia{sv}av): a row, or the menu as a whole with its rows as children.
QVariant MenuExport::layoutNode(int id, bool withChildren, const QStringList& names) const {
  QDBusArgument node;
  node.beginStructure();
  node << id << propertiesOf(id, names);
  node.beginArray(QMetaType::fromType<QDBusVariant>());
  for (const auto& row : rows_) {
    if (withChildren) { node << QDBusVariant(layoutNode(row.id, false, names)); }
  }
  node.endArray();
  node.endStructure();
  return QVariant::fromValue(node);
}

bool MenuExport::has(int id) const { return id == 0 || find(id); }

void MenuExport::handleEvent(int id, const QString& name) {
  if (id == 0 && name == QStringLiteral("opened")) { rebuild(); }
  const auto* const item = find(id);
  if (name == QStringLiteral("clicked") && item && item->enabled && item->action) {
    executor_.post(item->action);
  }
}

ObjectSurface MenuExport::surface() {
  const auto call = [this](QVariantList (MenuExport::*member)(const QVariantList&)) {
    return std::bind_front(member, this);
  };
  return {
      .interface = QStringLiteral("com.canonical.dbusmenu"),
      .introspection = QLatin1String(introspection),
      .methods =
          {{QStringLiteral("GetLayout"), {QStringLiteral("iias"), call(&MenuExport::getLayout)}},
           {QStringLiteral("GetGroupProperties"),
            {QStringLiteral("aias"), call(&MenuExport::getGroupProperties)}},
           {QStringLiteral("GetProperty"), {QStringLiteral("is"), call(&MenuExport::getProperty)}},
           {QStringLiteral("AboutToShow"), {QStringLiteral("i"), call(&MenuExport::aboutToShow)}},
           {QStringLiteral("AboutToShowGroup"),
            {QStringLiteral("ai"), call(&MenuExport::aboutToShowGroup)}},
           {QStringLiteral("Event"), {QStringLiteral("isvu"), call(&MenuExport::event)}},
           {QStringLiteral("EventGroup"),
            {QStringLiteral("a(isvu)"), call(&MenuExport::eventGroup)}}},
      .properties = surfaceProperties};
}

/// The parent, the depth, names of properties. A depth of zero leaves the children out; any other
/// takes them all, for there is one level only.
QVariantList MenuExport::getLayout(const QVariantList& arguments) {
  // A host that reads without announcing the menu first gets today's menu all the same. It may read
  // again for the signal of this change, and finds nothing new then.
  rebuild();
  wasRead_ = true;
  const auto parent = arguments.at(0).toInt();
  const bool withChildren = parent == 0 && arguments.at(1).toInt() != 0;
  return {revision_, layoutNode(parent, withChildren, arguments.at(2).toStringList())};
}

/// The rows' numbers, all rows when there are none; names of properties.
QVariantList MenuExport::getGroupProperties(const QVariantList& arguments) {
  const auto ids = qdbus_cast<QList<int>>(arguments.at(0));
  const auto names = arguments.at(1).toStringList();
  QList<RowProperties> list;
  const auto add = [&](int id) {
    if (ids.isEmpty() || ids.contains(id)) {
      list.append({.id = id, .properties = propertiesOf(id, names)});
    }
  };
  add(0);
  for (const auto& row : rows_) {
    add(row.id);
  }
  return {QVariant::fromValue(list)};
}

QVariantList MenuExport::getProperty(const QVariantList& arguments) {
  const auto name = arguments.at(1).toString();
  const auto properties = propertiesOf(arguments.at(0).toInt(), {name});
  const auto value = properties.value(name, defaultProperty(name));
  return {QVariant::fromValue(QDBusVariant(value))};
}

QVariantList MenuExport::aboutToShow(const QVariantList& arguments) {
  return {arguments.at(0).toInt() == 0 && rebuild()};
}

QVariantList MenuExport::aboutToShowGroup(const QVariantList& arguments) {
  QList<int> changed;
  QList<int> missing;
  for (const int id : qdbus_cast<QList<int>>(arguments.at(0))) {
    if (id == 0 && rebuild()) { changed.append(id); }
    if (!has(id)) { missing.append(id); }
  }
  return {QVariant::fromValue(changed), QVariant::fromValue(missing)};
}

QVariantList MenuExport::event(const QVariantList& arguments) {
  handleEvent(arguments.at(0).toInt(), arguments.at(1).toString());
  return {};
}

QVariantList MenuExport::eventGroup(const QVariantList& arguments) {
  QList<int> missing;
  const auto events = arguments.at(0).value<QDBusArgument>();
  events.beginArray();
  while (!events.atEnd()) {
    int id = 0;
    QString name;
    QDBusVariant data;
    uint timestamp = 0;
    events.beginStructure();
    events >> id >> name >> data >> timestamp;
    events.endStructure();
    handleEvent(id, name);
    if (!has(id)) { missing.append(id); }
  }
  events.endArray();
  return {QVariant::fromValue(missing)};
}
}  // namespace orvane
