#include "shell/views/block_reward_list.h"
#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHash>
#include <QPainter>
#include <QScrollArea>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QTextOption>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <optional>
#include "platform/desktop/symbols.h"
#include "shell/views/colors.h"
#include "shell/views/equal_digits.h"
#include "shell/views/figure_table.h"
#include "shell/views/parted_label.h"
#include "shell/views/theme.h"

namespace orvane {
// The list has no scroll bar of its own, so that the card around it is as high as ever: it must
// know the heights of all its lines, of which some go on in a second row of text. Texts that differ
// in their digits only are equally long, and there are few others; so each such form is measured,
// and the lines only count how often it occurs.

namespace {
constexpr int isSpendableRole = Qt::UserRole;

constexpr std::array<TableColumn, 1> columns{{{.title = "Block reward", .side = Qt::AlignLeft}}};

/// The digits of every script count here: lines of another height than expected would only leave or
/// lack a little room, where a column must not cut off a figure.
QString formOf(QString text) {
  for (QChar& character : text) {
    if (character.isDigit()) { character = QChar(character.unicode() - character.digitValue()); }
  }
  return text;
}
}  // namespace

class BlockRewardList::Model final : public RecordTableModel<BlockRewardLine> {
 public:
  explicit Model(QObject* parent) : RecordTableModel(columns, parent) {}

 protected:
  [[nodiscard]] std::string text(const BlockRewardLine& line, int /*column*/) const override {
    return line.text;
  }
  [[nodiscard]] QVariant detail(const BlockRewardLine& line, int /*column*/,
                                int role) const override {
    return role == isSpendableRole ? QVariant(line.isSpendable) : QVariant();
  }
};

/// Measures and draws the lines.
class BlockRewardList::Delegate final : public QStyledItemDelegate {
 public:
  explicit Delegate(const BlockRewardList& list, QObject* parent)
      : QStyledItemDelegate(parent), list_(list) {}

  void setLines(const std::vector<BlockRewardLine>& lines) {
    forms_.clear();
    formOfLine_.clear();
    formOfLine_.reserve(lines.size());
    QHash<QString, std::size_t> known;
    for (const auto& line : lines) {
      const QString form = formOf(toQString(line.text));
      const auto place = known.constFind(form);
      if (place == known.cend()) {
        known.insert(form, forms_.size());
        formOfLine_.push_back(forms_.size());
        forms_.push_back({.text = form, .lines = 1});
      } else {
        formOfLine_.push_back(*place);
        ++forms_[*place].lines;
      }
    }
    measuredWidth_ = -1;
  }

  void forgetMeasures() { measuredWidth_ = -1; }

  /// Of all lines, and of the gaps between them.
  [[nodiscard]] int totalHeight(int width) const {
    measure(width);
    int total = 0;
    for (const Form& form : forms_) {
      total += form.lines * (form.height + theme::smallSpacing);
    }
    return std::max(0, total - theme::smallSpacing);
  }

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                               const QModelIndex& index) const override {
    measure(list_.viewport()->width());
    const auto line = static_cast<std::size_t>(index.row());
    if (line >= formOfLine_.size()) { return {}; }
    const bool isLast = line + 1 == formOfLine_.size();
    return {0, forms_[formOfLine_[line]].height + (isLast ? 0 : theme::smallSpacing)};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const bool isSpendable = index.data(isSpendableRole).toBool();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    QRect row = option.rect;
    if (index.row() + 1 < index.model()->rowCount()) { row.adjust(0, 0, 0, -theme::smallSpacing); }
    painter->save();
    if (isSelected) { painter->fillRect(row, theme::selectionColor(option.palette)); }
    const auto color = isSelected ? option.palette.color(QPalette::HighlightedText)
                                  : theme::textColor(isSpendable ? theme::TextColor::green
                                                                 : theme::TextColor::orange,
                                                     list_.parentWidget()->palette());
    const int size = theme::grown(theme::symbolSize);
    const QRect symbol(row.left(), row.top() + (row.height() - size) / 2, size, size);
    painter->drawPixmap(QStyle::visualRect(option.direction, row, symbol).topLeft(),
                        symbolPixmap(isSpendable ? QStringLiteral("checkmark.seal.fill")
                                                 : QStringLiteral("hourglass"),
                                     size, color, painter->device()->devicePixelRatioF()));
    const QRect beside = row.adjusted(size + theme::smallSpacing, 0, 0, 0);
    const int textHeight = layOut(index.data().toString(), beside.width());
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, color);
    const int above = (row.height() - textHeight) / 2;
    painter->translate(QStyle::visualRect(option.direction, row, beside).topLeft());
    painter->translate(0, above);
    text_.documentLayout()->draw(painter, context);
    painter->restore();
    if (option.state.testFlag(QStyle::State_HasFocus) && !isSelected) {
      painter->setPen(theme::accentColor(option.palette));
      painter->setBrush(Qt::NoBrush);
      painter->drawRect(row.adjusted(0, 0, -1, -1));
    }
  }

 private:
  struct Form {
    QString text;
    int lines = 0;
    int height = 0;
  };

  void measure(int width) const {
    if (width == measuredWidth_) { return; }
    measuredWidth_ = width;
    for (Form& form : forms_) {
      const int size = theme::grown(theme::symbolSize);
      form.height = std::max(size, layOut(form.text, width - size - theme::smallSpacing));
    }
  }

  /// Lays `text` out as a label does, and gives its height.
  int layOut(const QString& text, int width) const {
    QTextOption option;
    option.setTextDirection(list_.layoutDirection());
    option.setWrapMode(QTextOption::WordWrap);
    text_.setDocumentMargin(0);
    text_.setDefaultFont(list_.font());
    text_.setDefaultTextOption(option);
    const auto line = toQString(numbersIsolated(toUtf8(text)));
    const QFontMetrics metrics(list_.font());
    const auto& digits = EqualDigits::of(list_.font(), digits_);
    const int paddings = digits.widthOf(line) - metrics.horizontalAdvance(line);
    text_.setPlainText(breakingBetweenParts(line, metrics, width - paddings));
    digits.applyTo(text_);
    text_.setTextWidth(std::max(1, width));
    return text_.size().toSize().height();
  }

  const BlockRewardList& list_;
  std::vector<std::size_t> formOfLine_;
  mutable std::vector<Form> forms_;  ///< the heights belong to the measured width
  mutable int measuredWidth_ = -1;
  mutable QTextDocument text_;
  mutable std::optional<EqualDigits> digits_;  ///< in the list's font
};

BlockRewardList::BlockRewardList(QWidget* parent)
    : QListView(parent), model_(new Model(this)), delegate_(new Delegate(*this, this)) {
  setModel(model_);
  setItemDelegate(delegate_);
  setAccessibleName(tr("Block rewards"));
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerPixel);
  setResizeMode(Adjust);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  viewport()->setAutoFillBackground(false);  // the card has the ground
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  auto* const copy = new QAction(tr("Copy"), this);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this, [this] { copyLine(); });
  addAction(copy);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  applyStyle();
}

void BlockRewardList::showLines(const std::vector<BlockRewardLine>& lines) {
  if (model_->setRecords(lines)) {
    delegate_->setLines(lines);
    scheduleDelayedItemsLayout();
    updateGeometry();
  }
  setVisible(!lines.empty());
}

int BlockRewardList::heightForWidth(int width) const { return delegate_->totalHeight(width); }

QSize BlockRewardList::sizeHint() const { return {width(), heightForWidth(width())}; }

QSize BlockRewardList::minimumSizeHint() const {
  const int size = theme::grown(theme::symbolSize);
  return {size, size};
}

void BlockRewardList::changeEvent(QEvent* event) {
  QListView::changeEvent(event);
  if (event->type() == QEvent::ApplicationFontChange) { applyStyle(); }
}

// The column around the card scrolls, not the list.
void BlockRewardList::wheelEvent(QWheelEvent* event) { event->ignore(); }

void BlockRewardList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QListView::currentChanged(current, previous);
  if (hasFocus() && current.isValid()) { bringCursorIntoSight(); }
}

void BlockRewardList::applyStyle() {
  setFont(theme::textFont(theme::TextStyle::calloutFigure));
  delegate_->forgetMeasures();
  scheduleDelayedItemsLayout();
  updateGeometry();
}

void BlockRewardList::copyLine() const {
  if (currentIndex().isValid()) {
    QGuiApplication::clipboard()->setText(currentIndex().data().toString());
  }
}

// As a scroll area does for what has the focus in it.
void BlockRewardList::bringCursorIntoSight() {
  const QRect line = visualRect(currentIndex());
  for (auto* around = parentWidget(); around; around = around->parentWidget()) {
    auto* const area = qobject_cast<QScrollArea*>(around);
    if (!area) { continue; }
    const QPoint center = viewport()->mapTo(area->widget(), line.center());
    area->ensureVisible(0, center.y(), 0, line.height());
    return;
  }
}
}  // namespace orvane
