#include "shell/views/symbol_icon.h"

#include <QPainter>

#include "platform/desktop/symbols.h"

namespace orvane {

QIcon symbolIcon(const QString& name, int size, const QPalette& palette) {
  QIcon icon;
  for (const auto devicePixelRatio : {1, 2, 3}) {
    icon.addPixmap(symbolPixmap(name, size, palette.color(QPalette::Active, QPalette::ButtonText),
                                devicePixelRatio),
                   QIcon::Normal);
    icon.addPixmap(symbolPixmap(name, size, palette.color(QPalette::Disabled, QPalette::ButtonText),
                                devicePixelRatio),
                   QIcon::Disabled);
  }
  return icon;
}

SymbolLabel::SymbolLabel(QWidget* parent) : QWidget(parent) {
  setFixedSize(theme::symbolSize, theme::symbolSize);
}

void SymbolLabel::showSymbol(const QString& name, theme::TextColor color) {
  if (name == name_ && color == color_) { return; }
  name_ = name;
  color_ = color;
  update();
}

void SymbolLabel::paintEvent(QPaintEvent* /*event*/) {
  const auto drawing =
      symbolPixmap(name_, height(), theme::textColor(color_, palette()), devicePixelRatioF());
  QPainter(this).drawPixmap(0, 0, drawing);
}

}  // namespace orvane
