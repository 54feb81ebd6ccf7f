#include "shell/views/column_area.h"

#include <QVBoxLayout>

#include "shell/views/theme.h"
#include "shell/views/thin_scroll_bar.h"

namespace orvane {

ColumnArea::ColumnArea(const QString& accessibleName, int spacing, QWidget* parent)
    : QScrollArea(parent) {
  setAccessibleName(accessibleName);
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  useThinScrollBars(*this);
  auto* const content = new QWidget(this);
  column_ = new QVBoxLayout(content);
  column_->setContentsMargins(theme::windowPadding, theme::windowPadding, theme::windowPadding,
                              theme::windowPadding);
  column_->setSpacing(spacing);
  setWidget(content);
  viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
}

}  // namespace orvane
