#include "shell/views/controls.h"
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>
#include <chrono>
#include "platform/color/contrast.h"
#include "platform/desktop/symbols.h"
#include "shell/views/theme.h"

namespace orvane {
namespace {
constexpr int stepsPerTurn = 8;
constexpr int degreesPerStep = 360 / stepsPerTurn;
constexpr int symbolGap = 4;
constexpr double trackShare = 0.2;  ///< of the arc's colour in the track; the rest is ground

void drawBusyIndicator(QPainter& painter, const QPointF& centre, const QPalette& palette,
                       int step) {
  const auto arc = palette.color(QPalette::Active, QPalette::ButtonText);
  const auto track = between(palette.color(QPalette::Active, QPalette::Button), arc, trackShare);
  const double diameter = theme::grown(theme::busyIndicatorSize) - 2;  // the pen is two wide
  QRectF circle(0, 0, diameter, diameter);
  circle.moveCenter(centre);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(track, 2));
  painter.drawEllipse(circle);
  painter.setPen(QPen(arc, 2, Qt::SolidLine, Qt::RoundCap));
  constexpr int sixteenths = 16;
  painter.drawArc(circle, (90 - step * degreesPerStep) * sixteenths, -100 * sixteenths);
}

constexpr int trackHeight = theme::controlHeight;
constexpr int trackRadius = 7;
constexpr int segmentInset = 2;

class Segment final : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

  [[nodiscard]] QSize sizeHint() const override {
    return {fontMetrics().horizontalAdvance(text()) + 2 * theme::grown(theme::smallSpacing),
            std::max(trackHeight, fontMetrics().height() + theme::smallSpacing)};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  [[nodiscard]] bool hitButton(const QPoint& position) const override {
    return rect().contains(position);
  }

  void focusInEvent(QFocusEvent* event) override {
    // A radio button would make itself its group's station of the Tab key, chosen or not.
    QWidget::focusInEvent(event);  // NOLINT(bugprone-parent-virtual-call): on purpose
  }

  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);  // the text's own, not the window's
    const auto box = QRectF(rect()).adjusted(segmentInset + 0.5, segmentInset + 0.5,
                                             -segmentInset - 0.5, -segmentInset - 0.5);
    auto colors = palette();
    if (isChecked()) {
      painter.setPen(QPen(theme::fieldOutlineColor(colors), 1));
      colors.setColor(QPalette::Window, theme::thumbColor(colors));
      painter.setBrush(colors.color(QPalette::Window));
      painter.drawRoundedRect(box, trackRadius - segmentInset, trackRadius - segmentInset);
    }
    // As styles do for buttons: not before the user goes from one to another by keyboard.
    const bool isByKeyboard = window()->testAttribute(Qt::WA_KeyboardFocusChange);
    if (hasFocus() && isByKeyboard) { paintFocus(painter, box); }
    painter.setPen(theme::textColor(theme::TextColor::primary, colors));
    painter.drawText(rect(), Qt::AlignCenter, text());
  }

 private:
  void paintFocus(QPainter& painter, const QRectF& box) const {
    const auto inside =
        isChecked() ? theme::thumbColor(palette()) : palette().color(QPalette::Window);
    painter.setPen(QPen(theme::accentColor(palette(), inside), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box, trackRadius - segmentInset, trackRadius - segmentInset);
  }
};
}  // namespace

TextButton::TextButton(const QString& text, QWidget* parent) : QPushButton(text, parent) {
  setAutoDefault(false);
}

QSize TextButton::sizeHint() const {
  const int symbol = icon().isNull() ? 0 : iconSize().width() + symbolGap;
  const int text = fontMetrics().horizontalAdvance(this->text());
  const QSize least(symbol + text + 2 * theme::grown(theme::buttonPadding), theme::controlHeight);
  return QPushButton::sizeHint().expandedTo(least);
}

RefreshButton::RefreshButton(const QString& subject, std::function<void()> onPress, QWidget* parent)
    : TextButton({}, parent), subject_(subject) {
  setText(tr("Refresh"));  // not earlier: a change makes screen readers ask what this is
  setAccessibleDescription(subject_);
  drawSymbol();
  connect(this, &QPushButton::clicked, this, [this, onPress = std::move(onPress)] {
    if (!isBusy_) { onPress(); }
  });
}

void RefreshButton::showState(const RefreshButtonState& state) {
  setVisible(state.isVisible);
  if (state.isBusy != isBusy_) { setBusy(state.isBusy); }
}

// Not disabled: such a button hands its focus to the next field, where a key press would then land
// that was not meant for it.
void RefreshButton::setBusy(bool busy) {
  isBusy_ = busy;
  setDown(false);
  QAccessible::State changed;
  changed.busy = changed.disabled = true;
  QAccessibleStateChangeEvent change(this, changed);
  QAccessible::updateAccessibility(&change);
  setAccessibleDescription(busy ? tr("%1, refreshing").arg(subject_) : subject_);
  startOrStopMoving();
  update();
}

SpokenWords RefreshButton::spokenWords() const {
  return {.role = QAccessible::Button, .name = text(), .isBusy = isBusy_, .canBePressed = true};
}

bool RefreshButton::hitButton(const QPoint& position) const {
  return !isBusy_ && QPushButton::hitButton(position);
}

void RefreshButton::keyPressEvent(QKeyEvent* event) {
  const bool isPress = event->key() == Qt::Key_Space || event->key() == Qt::Key_Select;
  if (!isBusy_ || !isPress) { QPushButton::keyPressEvent(event); }
}

void RefreshButton::startOrStopMoving() {
  const bool animates = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
  if (isBusy_ && isVisible() && animates) {
    if (!timer_.isActive()) { awaitNextStep(); }
  } else {
    timer_.stop();
  }
}

/// All indicators step at the same moments, so that several wake the machine no more than one.
void RefreshButton::awaitNextStep() {
  constexpr std::chrono::milliseconds length(theme::busyStepMilliseconds);
  const auto now = std::chrono::floor<std::chrono::milliseconds>(
      std::chrono::steady_clock::now().time_since_epoch());
  step_ = static_cast<int>(now / length % stepsPerTurn);
  timer_.start(static_cast<int>((length - now % length).count()), Qt::PreciseTimer, this);
}

void RefreshButton::paintEvent(QPaintEvent* event) {
  if (!isBusy_ && layoutDirection() == Qt::LeftToRight) {
    QPushButton::paintEvent(event);
    return;
  }
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  option.icon = QIcon();
  option.state.setFlag(QStyle::State_Enabled, !isBusy_);
  option.state.setFlag(QStyle::State_MouseOver, underMouse() && !isBusy_);
  QStylePainter painter(this);
  painter.drawControl(QStyle::CE_PushButton, option);
  if (isBusy_) {
    drawBusyIndicator(painter, QRectF(rect()).center(), palette(), step_);
  } else {
    drawLabelFromRight(painter, palette().color(QPalette::Active, QPalette::ButtonText));
  }
}

// Styles set a text beside a symbol at the wrong end of its room there.
void RefreshButton::drawLabelFromRight(QPainter& painter, const QColor& color) const {
  const int textWidth = fontMetrics().horizontalAdvance(text());
  QRect label(0, 0, textWidth + symbolGap + iconSize().width(), height());
  label.moveCenter(rect().center());
  QRect symbol(QPoint(), iconSize());
  symbol.moveCenter(label.center());
  symbol.moveRight(label.right());
  icon().paint(&painter, symbol);
  painter.setPen(color);
  painter.drawText(label, Qt::AlignLeft | Qt::AlignVCenter | Qt::AlignAbsolute, text());
}

void RefreshButton::timerEvent(QTimerEvent* event) {
  if (event->timerId() != timer_.timerId()) {
    QPushButton::timerEvent(event);
    return;
  }
  awaitNextStep();
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
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange ||
      event->type() == QEvent::ApplicationFontChange) {
    drawSymbol();
  }
}

void RefreshButton::drawSymbol() {
  const int size = theme::grown(theme::symbolSize);
  setIconSize({size, size});
  setIcon(symbolIcon(QStringLiteral("arrow.clockwise"), palette()));
}

SegmentedPicker::SegmentedPicker(const QString& group, const QString& subject,
                                 const QStringList& choices,
                                 const std::function<void(std::size_t)>& onChoose, QWidget* parent)
    : Surface(theme::Ground::chip, trackRadius, parent) {
  setAccessibleName(group);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  for (const auto& choice : choices) {
    auto* const segment = new Segment(choice, this);
    segment->setAccessibleDescription(subject);
    segment->setFocusPolicy(segments_.empty() ? Qt::StrongFocus : Qt::ClickFocus);
    // Not `clicked`: a screen reader checks the button without clicking it.
    connect(segment, &QRadioButton::toggled, this,
            [this, segment, onChoose, index = segments_.size()](bool checked) {
              segment->setFocusPolicy(checked ? Qt::StrongFocus : Qt::ClickFocus);
              if (checked && !isShowing_) { onChoose(index); }
            });
    row->addWidget(segment, 1);
    segments_.push_back(segment);
  }
}

QSize SegmentedPicker::sizeHint() const {
  QSize widest;
  for (const auto* const segment : segments_) {
    widest = widest.expandedTo(segment->sizeHint());
  }
  const auto all = widest.width() * static_cast<int>(segments_.size());
  return {std::max(theme::pickerWidth, all), widest.height()};
}

void SegmentedPicker::showChoice(std::size_t index) {
  isShowing_ = true;
  segments_.at(index)->setChecked(true);
  isShowing_ = false;
}
}  // namespace orvane
