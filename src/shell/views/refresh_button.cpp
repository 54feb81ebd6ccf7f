#include "shell/views/refresh_button.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "shell/views/symbol_icon.h"
#include "shell/views/theme.h"

namespace orvane {
namespace {

constexpr int stepsPerTurn = 12;
constexpr int degreesPerStep = 360 / stepsPerTurn;

void drawBusyIndicator(QPainter& painter, const QRect& around, const QColor& color, int step) {
  QRectF circle(0, 0, theme::busyIndicatorSize - 2, theme::busyIndicatorSize - 2);
  circle.moveCenter(QRectF(around).center());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(theme::withOpacity(color, 0.2), 2));
  painter.drawEllipse(circle);
  painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap));
  constexpr int sixteenths = 16;
  painter.drawArc(circle, (90 - step * degreesPerStep) * sixteenths, -100 * sixteenths);
}

}  // namespace

RefreshButton::RefreshButton(const QString& subject, std::function<void()> onPress, QWidget* parent)
    : QPushButton(tr("Refresh"), parent), subject_(subject) {
  setAutoDefault(false);
  setMinimumHeight(theme::controlHeight);
  setIconSize({theme::symbolSize, theme::symbolSize});
  setAccessibleDescription(subject_);
  drawSymbol();
  connect(this, &QPushButton::clicked, this, [onPress = std::move(onPress)] { onPress(); });
}

void RefreshButton::showState(const RefreshButtonState& state) {
  setVisible(state.isVisible);
  if (state.isBusy != isBusy_) { setBusy(state.isBusy); }
}

void RefreshButton::setBusy(bool busy) {
  isBusy_ = busy;
  // A button that is disabled hands its focus to the next field, where a key press would then
  // land that was not meant for it; so it lets go of the focus first and takes it back later.
  if (busy && hasFocus()) {
    returnsFocus_ = true;
    clearFocus();
  }
  setEnabled(!busy);
  if (!busy && returnsFocus_) {
    returnsFocus_ = false;
    if (!window()->focusWidget()) { setFocus(Qt::OtherFocusReason); }
  }
  setAccessibleDescription(busy ? tr("%1, refreshing").arg(subject_) : subject_);
  startOrStopMoving();
  update();
}

void RefreshButton::startOrStopMoving() {
  const bool animates = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
  if (isBusy_ && isVisible() && animates) {
    if (!timer_.isActive()) { timer_.start(theme::busyStepMilliseconds, this); }
  } else {
    timer_.stop();
  }
}

void RefreshButton::paintEvent(QPaintEvent* event) {
  if (!isBusy_) {
    QPushButton::paintEvent(event);
    return;
  }
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  option.icon = QIcon();
  QStylePainter painter(this);
  painter.drawControl(QStyle::CE_PushButton, option);
  drawBusyIndicator(painter, rect(), palette().color(QPalette::Active, QPalette::ButtonText),
                    step_);
}

void RefreshButton::timerEvent(QTimerEvent* event) {
  if (event->timerId() != timer_.timerId()) {
    QPushButton::timerEvent(event);
    return;
  }
  step_ = (step_ + 1) % stepsPerTurn;
  update();
}

void RefreshButton::showEvent(QShowEvent* event) {
  QPushButton::showEvent(event);
  startOrStopMoving();
}

void RefreshButton::hideEvent(QHideEvent* event) {
  QPushButton::hideEvent(event);
  startOrStopMoving();
}

void RefreshButton::changeEvent(QEvent* event) {
  QPushButton::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
    drawSymbol();
  }
}

void RefreshButton::drawSymbol() {
  setIcon(symbolIcon(QStringLiteral("arrow.clockwise"), theme::symbolSize, palette()));
}

}  // namespace orvane
