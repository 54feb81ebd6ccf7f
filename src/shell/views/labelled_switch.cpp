#include "shell/views/labelled_switch.h"
#include <QCheckBox>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <algorithm>
#include "platform/color/contrast.h"
#include "shell/views/labels.h"

namespace orvane {
namespace {
/// Styles outline tick boxes as faintly as fields; this one is drawn like our own.
class TickBox final : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;

  [[nodiscard]] QSize sizeHint() const override {
    const int size = std::max(smallestBox, fontMetrics().ascent()) + 2 * focusRoom;
    return {size, size};
  }

 protected:
  [[nodiscard]] bool hitButton(const QPoint& position) const override {
    return rect().contains(position);
  }

  void paintEvent(QPaintEvent* /*event*/) override {
    const auto accent = theme::accentColor(palette());
    const double half = 0.5;
    auto box = QRectF(rect()).adjusted(half, half, -half, -half);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (hasFocus()) {
      painter.setPen(QPen(accent, 1));
      painter.drawRoundedRect(box, radius + focusRoom, radius + focusRoom);
    }
    box.adjust(focusRoom, focusRoom, -focusRoom, -focusRoom);
    painter.setPen(QPen(isChecked() ? accent : theme::fieldOutlineColor(palette()), 1));
    painter.setBrush(isChecked() ? accent : palette().color(QPalette::Base));
    painter.drawRoundedRect(box, radius, radius);
    if (isChecked()) { paintTick(painter, box); }
  }

 private:
  static void paintTick(QPainter& painter, const QRectF& box) {
    const auto at = [&box](double x, double y) {
      return box.topLeft() + QPointF(box.width() * x, box.height() * y);
    };
    const QColor color = farthestFrom(painter.brush().color());
    painter.setPen(QPen(color, box.width() / 8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{at(0.24, 0.52), at(0.43, 0.71), at(0.77, 0.31)});
  }

  static constexpr int smallestBox = 15;
  static constexpr int focusRoom = 2;
  static constexpr int radius = 3;
};
}  // namespace

LabelledSwitch::LabelledSwitch(const QString& text, const std::function<void(bool on)>& onSwitch,
                               QWidget* parent)
    : QWidget(parent), box_(new TickBox(this)) {
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
