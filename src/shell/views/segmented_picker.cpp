#include "shell/views/segmented_picker.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QRadioButton>

#include "shell/views/theme.h"

namespace orvane {

namespace {

constexpr int trackHeight = theme::controlHeight;
constexpr int trackRadius = 7;
constexpr int segmentInset = 2;

class Segment final : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

  [[nodiscard]] QSize sizeHint() const override {
    return {fontMetrics().horizontalAdvance(text()) + 2 * theme::smallSpacing, trackHeight};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  [[nodiscard]] bool hitButton(const QPoint& position) const override {
    return rect().contains(position);
  }

  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto box = QRectF(rect()).adjusted(segmentInset + 0.5, segmentInset + 0.5,
                                             -segmentInset - 0.5, -segmentInset - 0.5);
    if (isChecked()) { paintThumb(painter, box); }
    if (hasFocus()) { paintFocus(painter, box); }
    painter.setPen(palette().color(isChecked() ? QPalette::ButtonText : QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignCenter, text());
  }

 private:
  void paintThumb(QPainter& painter, const QRectF& box) const {
    painter.setPen(QPen(theme::outlineColor(palette()), 1));
    const bool dark = theme::isDark(palette());
    painter.setBrush(dark ? palette().color(QPalette::Button).lighter(150)
                          : palette().color(QPalette::Base));
    painter.drawRoundedRect(box, trackRadius - segmentInset, trackRadius - segmentInset);
  }

  void paintFocus(QPainter& painter, const QRectF& box) const {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box, trackRadius - segmentInset, trackRadius - segmentInset);
  }
};

}  // namespace

SegmentedPicker::SegmentedPicker(const QString& accessibleName, const QStringList& choices,
                                 const std::function<void(int)>& onChoose, QWidget* parent)
    : QWidget(parent) {
  setAccessibleName(accessibleName);
  setFixedSize(theme::pickerWidth, trackHeight);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  for (int index = 0; index < choices.size(); ++index) {
    auto* const segment = new Segment(choices[index], this);
    segment->setAccessibleDescription(accessibleName);
    // Not `clicked`: a screen reader checks the button without clicking it.
    connect(segment, &QRadioButton::toggled, this, [this, onChoose, index](bool checked) {
      if (checked && !isShowing_) { onChoose(index); }
    });
    row->addWidget(segment, 1);
    segments_.push_back(segment);
  }
}

void SegmentedPicker::showChoice(int index) {
  if (index < 0 || std::cmp_greater_equal(index, segments_.size())) { return; }
  isShowing_ = true;
  segments_[static_cast<std::size_t>(index)]->setChecked(true);
  isShowing_ = false;
}

void SegmentedPicker::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme::chipColor(palette()));
  painter.drawRoundedRect(rect(), trackRadius, trackRadius);
}

}  // namespace orvane
