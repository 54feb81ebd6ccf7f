#include "shell/views/text_label.h"

#include <QEvent>
#include <QGuiApplication>

#include "shell/views/qt_text.h"

namespace orvane {

TextLabel::TextLabel(theme::TextStyle style, theme::TextColor color, QWidget* parent)
    : QLabel(parent), style_(style), color_(color) {
  setTextFormat(Qt::PlainText);
  setFont(theme::textFont(style_));
  applyColor();
}

void TextLabel::showText(std::string_view text) {
  const auto wanted = toQString(text);
  if (wanted != this->text()) { setText(wanted); }
}

void TextLabel::showTextOrHide(std::string_view text) {
  showText(text);
  setVisible(!text.empty());
}

void TextLabel::setColor(theme::TextColor color) {
  if (color == color_) { return; }
  color_ = color;
  applyColor();
}

void TextLabel::makeSelectable() {
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void TextLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange) {
    applyColor();
  }
  if (event->type() == QEvent::ApplicationFontChange) { applyFont(); }
}

void TextLabel::applyFont() { setFont(theme::textFont(style_)); }

void TextLabel::applyColor() {
  const auto surroundings = parentWidget() ? parentWidget()->palette() : QGuiApplication::palette();
  const auto color = theme::textColor(color_, surroundings);
  auto own = palette();
  if (own.color(QPalette::WindowText) == color) { return; }
  own.setColor(QPalette::WindowText, color);
  setPalette(own);
}

}  // namespace orvane
