#include "shell/views/link_label.h"

#include <QEvent>

#include "shell/views/qt_text.h"

namespace orvane {

LinkLabel::LinkLabel(theme::TextStyle style, std::string_view text, std::string_view url,
                     QWidget* parent)
    : QLabel(parent), style_(style), text_(toQString(text)), url_(toQString(url)) {
  setAccessibleName(text_);
  if (!url_.isEmpty()) {
    setTextFormat(Qt::RichText);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    setOpenExternalLinks(true);
    setToolTip(url_);
  }
  applyStyle();
}

void LinkLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationFontChange) {
    applyStyle();
  }
}

void LinkLabel::applyStyle() {
  setFont(theme::textFont(style_));
  if (url_.isEmpty()) {
    setText(text_);
    return;
  }
  // The colour of a link is fixed when its text is laid out, so it is written into the text.
  setText(
      QStringLiteral("<a href=\"%1\" style=\"color: %2\">%3</a>")
          .arg(url_.toHtmlEscaped(), theme::linkColor(palette()).name(), text_.toHtmlEscaped()));
}

}  // namespace orvane
