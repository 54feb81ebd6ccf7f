#include "platform/desktop/status/bus/menu_layout.h"

namespace orvane {
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

}  // namespace orvane
