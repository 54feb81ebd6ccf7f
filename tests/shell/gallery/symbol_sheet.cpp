// Draws every symbol and the application icon in the sizes and colours of their use onto one
// sheet, to be looked at after a drawing has changed.

#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <array>

#include "platform/desktop/symbols.h"

namespace {

constexpr int cell = 64;
constexpr std::array symbolSizes{13, 16, 18, 22, 48};
constexpr std::array iconSizes{16, 22, 24, 32, 48, 64, 128, 256};

QStringList symbolNames() {
  QStringList names;
  for (const auto& file : QDir(QStringLiteral(":/orvane/symbols")).entryList()) {
    names.append(QString(file).remove(QStringLiteral(".svg")));
  }
  return names;
}

/// One row a symbol: its sizes on light, then the same on dark.
QImage symbolSheet(qreal devicePixelRatio) {
  const auto names = symbolNames();
  const auto columns = static_cast<int>(symbolSizes.size());
  QImage sheet(QSize(2 * columns * cell, static_cast<int>(names.size()) * cell) * devicePixelRatio,
               QImage::Format_ARGB32_Premultiplied);
  sheet.setDevicePixelRatio(devicePixelRatio);
  QPainter painter(&sheet);
  for (int row = 0; row < names.size(); ++row) {
    for (int column = 0; column < 2 * columns; ++column) {
      const bool dark = column >= columns;
      const QRect box(column * cell, row * cell, cell, cell);
      painter.fillRect(box, dark ? QColor(0x24, 0x26, 0x29) : QColor(0xfa, 0xfa, 0xfa));
      const auto size = symbolSizes.at(static_cast<std::size_t>(column % columns));
      const auto color = dark ? QColor(0xf0, 0xf0, 0xf0) : QColor(0x20, 0x20, 0x20);
      const auto drawing = orvane::symbolPixmap(names[row], size, color, devicePixelRatio);
      painter.drawPixmap(box.x() + (cell - size) / 2, box.y() + (cell - size) / 2, drawing);
    }
  }
  return sheet;
}

QImage iconSheet(qreal devicePixelRatio) {
  QImage sheet(QSize(700, 560) * devicePixelRatio, QImage::Format_ARGB32_Premultiplied);
  sheet.setDevicePixelRatio(devicePixelRatio);
  QPainter painter(&sheet);
  for (const bool dark : {false, true}) {
    const int top = dark ? 280 : 0;
    painter.fillRect(0, top, 700, 280, dark ? QColor(0x24, 0x26, 0x29) : QColor(0xfa, 0xfa, 0xfa));
    int x = 12;
    for (const int size : iconSizes) {
      orvane::applicationIcon().paint(&painter, QRect(x, top + 12, size, size));
      x += size + 12;
    }
  }
  return sheet;
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("."));
  if (!orvane::hasSymbol(QStringLiteral("chart.bar")) || !folder.mkpath(QStringLiteral("."))) {
    return 1;
  }
  for (const int ratio : {1, 2}) {
    symbolSheet(ratio).save(folder.filePath(QStringLiteral("symbols@%1x.png").arg(ratio)));
    iconSheet(ratio).save(folder.filePath(QStringLiteral("icon@%1x.png").arg(ratio)));
  }
  return 0;
}
