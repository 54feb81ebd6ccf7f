#include "shell/views/view_footer.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>

#include "platform/desktop/symbols.h"
#include "shell/views/link_label.h"
#include "shell/views/theme.h"

namespace orvane {

ViewFooter::ViewFooter(const std::string& brandUrl, const std::function<void()>& closeAction,
                       QWidget* parent)
    : QWidget(parent) {
  setFixedHeight(theme::footerHeight);
  auto* const close = new QPushButton(tr("Close"), this);
  close->setMinimumHeight(theme::controlHeight);
  connect(close, &QPushButton::clicked, this, [this, closeAction] {
    if (closeAction) {
      closeAction();
    } else {
      window()->close();
    }
  });
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(theme::footerPadding, 0, theme::footerPadding, 0);
  row->addWidget(new LinkLabel(theme::TextStyle::body, "The Fennick Tools", brandUrl, this));
  row->addStretch();
  row->addWidget(close);
}

AppIconLabel::AppIconLabel(QWidget* parent) : QWidget(parent) {
  setFixedSize(theme::appIconSize, theme::appIconSize);
}

void AppIconLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  applicationIcon().paint(&painter, rect());
}

}  // namespace orvane
