#pragma once

#include <QStringList>
#include <QVariantMap>

#include "platform/desktop/status/bus/menu_model.h"
#include "platform/desktop/status/bus/menu_types.h"

/// How the menu's rows look on the bus. A list of property names limits what is given; an empty
/// one asks for all.
namespace orvane {

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

}  // namespace orvane
