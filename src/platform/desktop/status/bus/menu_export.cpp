#include "platform/desktop/status/bus/menu_export.h"

#include <QGuiApplication>
#include <utility>

#include "platform/desktop/status/bus/menu_introspection.h"
#include "platform/desktop/status/bus/menu_layout.h"

namespace orvane {
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
