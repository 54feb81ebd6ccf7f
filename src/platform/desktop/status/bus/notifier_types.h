#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QImage>
#include <QList>
#include <QMetaType>
#include <QString>

namespace orvane {

/// One size of an icon, (iiay): ARGB32 in network byte order, not premultiplied.
struct NotifierPixmap {
  int width = 0;
  int height = 0;
  QByteArray bytes;
  bool operator==(const NotifierPixmap&) const = default;
};
using NotifierPixmaps = QList<NotifierPixmap>;

/// (sa(iiay)ss)
struct NotifierToolTip {
  QString iconName;
  NotifierPixmaps icon;
  QString title;
  QString description;
  bool operator==(const NotifierToolTip&) const = default;
};

[[nodiscard]] NotifierPixmap notifierPixmap(const QImage& image);

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip);

/// Must have run before one of these travels over the bus; repeating it is harmless.
void registerNotifierTypes();

}  // namespace orvane

Q_DECLARE_METATYPE(orvane::NotifierPixmap)
Q_DECLARE_METATYPE(orvane::NotifierPixmaps)
Q_DECLARE_METATYPE(orvane::NotifierToolTip)
