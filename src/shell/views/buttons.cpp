#include "shell/views/buttons.h"

#include <QEvent>
#include <QMenu>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "shell/views/labels.h"
#include "shell/views/qt_text.h"
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

namespace {

constexpr int symbolSize = theme::symbolSize + 4;

/// The command's key, and the ones that a user of this desktop would try as well.
QList<QKeySequence> shortcuts(const std::string& keyEquivalent) {
  if (keyEquivalent.empty()) { return {}; }
  const auto key = toQString(keyEquivalent).toUpper();
  QList<QKeySequence> keys{QKeySequence(QStringLiteral("Ctrl+") + key)};
  if (keyEquivalent == "?") {
    keys.append(QKeySequence(Qt::Key_F1));
    keys.append(QKeySequence(QStringLiteral("Ctrl+Shift+?")));
  }
  return keys;
}

void addCommand(QMenu& menu, const MenuItem& item) {
  if (item.isSeparator()) {
    menu.addSeparator();
    return;
  }
  auto* const command = menu.addAction(toQString(item.title));
  command->setEnabled(item.enabled);
  command->setShortcuts(shortcuts(item.keyEquivalent));
  command->setShortcutContext(Qt::ApplicationShortcut);
  QObject::connect(command, &QAction::triggered, &menu, [action = item.action] {
    if (action) { action(); }
  });
}

}  // namespace

CommandButton::CommandButton(const Menu& commands, QWidget* parent) : QPushButton(parent) {
  setFlat(true);
  setAutoDefault(false);
  setIconSize({symbolSize, symbolSize});
  setFixedSize(theme::controlHeight, theme::controlHeight);
  setAccessibleName(tr("Help and commands"));
  setToolTip(tr("Help and commands"));
  auto* const menu = new QMenu(this);
  for (const auto& item : commands.items) {
    addCommand(*menu, item);
  }
  setMenu(menu);
  // Keys of a menu that is not open work only where its commands belong to a visible widget.
  addActions(menu->actions());
  drawSymbol();
}

void CommandButton::changeEvent(QEvent* event) {
  QPushButton::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) { drawSymbol(); }
}

void CommandButton::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionButton option;
  initStyleOption(&option);
  option.features.setFlag(QStyleOptionButton::HasMenu, false);  // an arrow says nothing here
  QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
}

void CommandButton::drawSymbol() {
  setIcon(symbolIcon(QStringLiteral("questionmark.circle"), symbolSize, palette()));
}

}  // namespace orvane
