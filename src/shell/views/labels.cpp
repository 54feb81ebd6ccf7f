#include "shell/views/labels.h"
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>
#include <utility>
#include "platform/desktop/symbols.h"
#include "platform/text/unicode.h"
#include "shell/views/flow_layout.h"
#include "shell/views/qt_text.h"

namespace orvane {
namespace {
/// The share of its size down to which a figure may shrink.
constexpr double smallestShare = 0.3;

int textWidth(const QFont& font, const QString& text) {
  return QFontMetrics(font).horizontalAdvance(text) + 2;  // glyphs may lean out of their advance
}

constexpr QChar leftToRightMark(0x200E);

/// Keeps a number in its place while it is drawn.
bool isIsolate(QChar character) {
  return character.unicode() >= 0x2066 && character.unicode() <= 0x2069;
}

/// The focus goes to another window or to a menu, and is about to come back.
bool isTemporary(Qt::FocusReason reason) {
  return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

/// Takes the width that its place has.
class WrappingLabel final : public TextLabel {
 public:
  WrappingLabel(const QString& text, theme::TextStyle style, theme::TextColor color,
                QWidget* parent)
      : TextLabel(text, style, color, parent) {
    setWordWrap(true);
  }

  [[nodiscard]] int heightForWidth(int width) const override {
    return heights_.at(width, *this, [&] { return TextLabel::heightForWidth(width); });
  }

 private:
  mutable KeptHeights heights_;
};
}  // namespace

int KeptHeights::at(int width, const QLabel& label, const std::function<int()>& measure) {
  constexpr std::size_t mostHeights = 16;
  const std::tuple now(label.text(), label.font(), label.devicePixelRatioF());
  if (heights_.size() > mostHeights || now != measured_) {
    heights_.clear();
    measured_ = now;
  }
  const auto [known, isNew] = heights_.try_emplace(width);
  if (isNew) { known->second = measure(); }
  return known->second;
}

TextLabel::TextLabel(theme::TextStyle style, theme::TextColor color, QWidget* parent)
    : QLabel(parent), style_(style), color_(color) {
  setTextFormat(Qt::PlainText);
  setTextInteractionFlags(Qt::NoTextInteraction);
  setFont(theme::textFont(style_));
  applyColor();
}

TextLabel::TextLabel(const QString& text, theme::TextStyle style, theme::TextColor color,
                     QWidget* parent)
    : TextLabel(style, color, parent) {
  setText(text);
}

// A text that can be selected takes its direction from the first character that has one, also from
// within an isolated number, such as a date.
QString TextLabel::drawn(std::string_view text) {
  const auto isolated = toQString(numbersIsolated(text));
  const bool beginsWithNumber = !isolated.isEmpty() && isIsolate(isolated.front());
  return beginsWithNumber && !isolated.isRightToLeft() ? leftToRightMark + isolated : isolated;
}

void TextLabel::showText(std::string_view text) {
  const auto wanted = drawn(text);
  if (wanted == this->text()) { return; }
  replaceText(wanted);
  applyFont();
  const auto plain = toQString(text);
  const auto spoken = wanted == plain ? QString() : plain;  // empty: as it is drawn
  if (spoken != accessibleName()) { setAccessibleName(spoken); }
}

void TextLabel::replaceText(const QString& text) {
  const bool isSelected = hasFocus() && isWhollySelected();
  setText(text);
  if (isSelected) { selectAll(); }
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

void TextLabel::makeSelectable(By means) {
  if (means == By::mouseAndKeyboard) {
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::StrongFocus);
  } else if (wordWrap()) {
    setTextInteractionFlags(Qt::TextSelectableByMouse);
  } else {
    waitsForPointer_ = true;
  }
}

// What can be selected is a document of its own, and most figures never are. In a line it looks as
// before; several lines would take another height.
void TextLabel::enterEvent(QEnterEvent* event) {
  if (std::exchange(waitsForPointer_, false)) {
    setTextInteractionFlags(Qt::TextSelectableByMouse);
  }
  QLabel::enterEvent(event);
}

void TextLabel::selectAll() { setSelection(0, static_cast<int>(text().size())); }

bool TextLabel::isWhollySelected() const {
  return hasSelectedText() && selectedText().size() == text().size();
}

void TextLabel::copy() const {
  auto text = hasSelectedText() ? selectedText() : this->text();
  if (text.startsWith(leftToRightMark)) { text.remove(0, 1); }
  text.removeIf(isIsolate).replace(QChar::Nbsp, u' ');
  QGuiApplication::clipboard()->setText(text);
}

// As in a field: the Tab key selects the text, and leaves it as it was.
void TextLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  if (isTemporary(event->reason()) || event->reason() == Qt::MouseFocusReason) { return; }
  selectAll();
}

void TextLabel::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  if (!isTemporary(event->reason()) && isWhollySelected()) { setSelection(0, 0); }
}

void TextLabel::keyPressEvent(QKeyEvent* event) {
  event->matches(QKeySequence::Copy) ? copy() : QLabel::keyPressEvent(event);
}

void TextLabel::contextMenuEvent(QContextMenuEvent* event) {
  if (textInteractionFlags() == Qt::NoTextInteraction) {
    QLabel::contextMenuEvent(event);
    return;
  }
  auto* const menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction(tr("Copy"), QKeySequence::Copy, this, &TextLabel::copy);
  menu->addAction(tr("Select All"), QKeySequence::SelectAll, this, &TextLabel::selectAll);
  menu->popup(event->globalPos());
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
  setPalette(theme::textPalette(color_, surroundings));
}

TextLabel* wrappingText(const QString& text, theme::TextStyle style, theme::TextColor color,
                        QWidget* parent) {
  return new WrappingLabel(text, style, color, parent);
}

int FigureLabel::widthOf(std::string_view text) const {
  return textWidth(theme::textFont(style()), toQString(text));
}

QSize FigureLabel::sizeHint() const {
  const auto font = theme::textFont(style());
  return {textWidth(font, text()), QFontMetrics(font).height()};
}

QSize FigureLabel::minimumSizeHint() const {
  const auto whole = sizeHint();
  return {static_cast<int>(whole.width() * smallestShare), whole.height()};
}

void FigureLabel::resizeEvent(QResizeEvent* event) {
  TextLabel::resizeEvent(event);
  applyFont();
}

void FigureLabel::applyFont() {
  auto fitting = theme::textFont(style());
  const int wanted = textWidth(fitting, text());
  if (wanted > width() && width() > 0) {
    const auto share = std::max(smallestShare, static_cast<double>(width()) / wanted);
    fitting.setPixelSize(static_cast<int>(fitting.pixelSize() * share));
  }
  if (fitting != font()) { setFont(fitting); }
}

LinkLabel::LinkLabel(theme::TextStyle style, std::string_view text, std::string_view url,
                     QWidget* parent)
    : QLabel(parent), style_(style), text_(toQString(text)), url_(toQString(url)) {
  setAccessibleName(text_);
  setWordWrap(true);
  if (!url_.isEmpty()) {
    setTextFormat(Qt::RichText);
    // Not accessible by keyboard in Qt's way, whose first station is the label around the link.
    setTextInteractionFlags(Qt::LinksAccessibleByMouse);
    setFocusPolicy(Qt::TabFocus);
    setOpenExternalLinks(true);
    setToolTip(url_);
  }
  applyStyle();
}

QSize LinkLabel::sizeHint() const {
  const int width = textWidth(font(), text_);
  return {width, heightForWidth(width)};
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
  // The colour of a link is fixed when its text is laid out, so it is written into the text. With
  // the focus it looks like a selected text.
  const auto ground = hasFocus() ? theme::selectionColor(palette()) : QColor(Qt::transparent);
  const auto color =
      hasFocus() ? palette().color(QPalette::HighlightedText) : theme::linkColor(palette());
  setText(QStringLiteral("<a href=\"%1\" style=\"color: %2; background-color: %3\">%4</a>")
              .arg(url_.toHtmlEscaped(), color.name(), ground.name(QColor::HexArgb),
                   text_.toHtmlEscaped()));
}

SpokenWords LinkLabel::spokenWords() const {
  return {.role = url_.isEmpty() ? QAccessible::StaticText : QAccessible::Link,
          .name = text_,
          .canBePressed = !url_.isEmpty()};
}

void LinkLabel::pressSpoken() { QDesktopServices::openUrl(QUrl(url_)); }

void LinkLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  applyStyle();
}

void LinkLabel::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  applyStyle();
}

void LinkLabel::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  isReturn && !url_.isEmpty() ? pressSpoken() : QLabel::keyPressEvent(event);
}

SymbolLabel::SymbolLabel(QWidget* parent) : QWidget(parent) { fitToFont(); }

void SymbolLabel::showSymbol(const QString& name, theme::TextColor color) {
  if (name == name_ && color == color_) { return; }
  name_ = name;
  color_ = color;
  update();
}

void SymbolLabel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ApplicationFontChange) { fitToFont(); }
}

void SymbolLabel::fitToFont() {
  const int size = theme::grown(theme::symbolSize);
  setFixedSize(size, size);
}

void SymbolLabel::paintEvent(QPaintEvent* /*event*/) {
  const auto drawing =
      symbolPixmap(name_, height(), theme::textColor(color_, palette()), devicePixelRatioF());
  QPainter(this).drawPixmap(0, 0, drawing);
}

using theme::TextColor;
using theme::TextStyle;

MetricBlock::MetricBlock(TextStyle title, TextStyle value, QWidget* parent)
    : QWidget(parent),
      title_(new TextLabel(title, TextColor::secondary, this)),
      value_(new FigureLabel(value, TextColor::primary, this)),
      fiatValue_(new FigureLabel(TextStyle::calloutFigure, TextColor::secondary, this)) {
  value_->makeSelectable(TextLabel::By::mouse);
  auto* const lines = new QVBoxLayout(this);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(theme::metricLineSpacing);
  lines->setAlignment(Qt::AlignTop | Qt::AlignLeading);
  lines->addWidget(title_);
  lines->addWidget(value_);
  lines->addWidget(fiatValue_);
}

void MetricBlock::showMetric(const Metric& metric) {
  title_->showText(metric.title);
  value_->showText(metric.value);
  fiatValue_->showTextOrHide(metric.fiatValue);
  // A screen reader that stands on the figure also says what it is.
  const auto title = toQString(metric.title);
  if (title != value_->accessibleDescription()) { value_->setAccessibleDescription(title); }
}

int MetricBlock::widthOf(const Metric& metric) const {
  return std::max({textWidth(title_->font(), toQString(metric.title)),
                   value_->widthOf(metric.value), fiatValue_->widthOf(metric.fiatValue)});
}

MetricRow::MetricRow(MakeBlock makeBlock, QWidget* parent)
    : QWidget(parent), makeBlock_(makeBlock) {
  new FlowLayout(FlowLayout::Align::top, theme::metricSpacing, theme::metricRowGap, this);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void MetricRow::showMetrics(const std::vector<Metric>& metrics) {
  while (blocks_.size() > metrics.size()) {
    delete blocks_.back();
    blocks_.pop_back();
  }
  while (blocks_.size() < metrics.size()) {
    blocks_.push_back(makeBlock_(this));
    layout()->addWidget(blocks_.back());
  }
  for (std::size_t i = 0; i < metrics.size(); ++i) {
    blocks_[i]->showMetric(metrics[i]);
  }
  setVisible(!metrics.empty());
}

int MetricRow::widthOf(const std::vector<Metric>& metrics) const {
  int width = -theme::metricSpacing;
  const std::unique_ptr<MetricBlock> block(makeBlock_(nullptr));
  for (const Metric& metric : metrics) {
    width += theme::metricSpacing + block->widthOf(metric);
  }
  return width;
}
}  // namespace orvane
