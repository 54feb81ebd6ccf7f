#include "platform/desktop/status/bus/notifier_types.h"

#include <QDBusMetaType>
#include <QtEndian>

namespace orvane {

NotifierPixmap notifierPixmap(const QImage& image) {
  const auto pixels = image.convertToFormat(QImage::Format_ARGB32);
  NotifierPixmap pixmap{.width = pixels.width(), .height = pixels.height(), .bytes = {}};
  const auto lineSize = static_cast<qsizetype>(pixels.width()) * 4;
  pixmap.bytes.resize(lineSize * pixels.height());
  for (int line = 0; line < pixels.height(); ++line) {
    qToBigEndian<quint32>(pixels.constScanLine(line), pixels.width(),
                          pixmap.bytes.data() + line * lineSize);
  }
  return pixmap;
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap) {
  argument.beginStructure();
  argument << pixmap.width << pixmap.height << pixmap.bytes;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap) {
  argument.beginStructure();
  argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
  argument.endStructure();
  return argument;  // NOLINT(bugprone-return-const-ref-from-parameter): as Qt asks for it
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip) {
  argument.beginStructure();
  argument << toolTip.iconName << toolTip.icon << toolTip.title << toolTip.description;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip) {
  argument.beginStructure();
  argument >> toolTip.iconName >> toolTip.icon >> toolTip.title >> toolTip.description;
  argument.endStructure();
  return argument;  // NOLINT(bugprone-return-const-ref-from-parameter): as Qt asks for it
}

void registerNotifierTypes() {
  qDBusRegisterMetaType<NotifierPixmap>();
  qDBusRegisterMetaType<NotifierPixmaps>();
  qDBusRegisterMetaType<NotifierToolTip>();
}

}  // namespace orvane
