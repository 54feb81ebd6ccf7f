#include "shell/views/labelled_switch.h"
#include <QCheckBox>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QSignalBlocker>
#include "shell/views/labels.h"

namespace orvane {
LabelledSwitch::LabelledSwitch(const QString& text, const std::function<void(bool on)>& onSwitch,
                               QWidget* parent)
    : QWidget(parent), box_(new QCheckBox(this)) {
  box_->setAccessibleName(text);
  auto* const label = wrappingText(text, theme::TextStyle::body, theme::TextColor::primary, this);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(theme::smallSpacing);
  row->addWidget(box_, 0, Qt::AlignTop);
  row->addWidget(label, 1);
  connect(box_, &QCheckBox::toggled, this, onSwitch);
}

void LabelledSwitch::showOn(bool on) {
  const QSignalBlocker silently(box_);
  box_->setChecked(on);
}

void LabelledSwitch::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
    box_->click();
  }
}
}  // namespace orvane
