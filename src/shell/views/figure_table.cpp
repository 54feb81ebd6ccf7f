#include "shell/views/figure_table.h"
#include <QAction>
#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHash>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QSet>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <optional>
#include "shell/views/equal_digits.h"
#include "shell/views/frames.h"
#include "shell/views/theme.h"

namespace orvane {
namespace {
int dotWidth() { return theme::grown(theme::stateDotSize) + theme::smallSpacing; }

/// Of a row of texts, with the design's space around a line.
int heightOfRow(const QFont& font, int lines = 1) {
  return std::max(theme::tableRowHeight,
                  lines * QFontMetrics(font).height() + theme::tableCellPadding);
}

/// What stands around the text of a cell. The outer columns keep the distance to the panel's edge
/// that everything in it keeps; the scroll bar lies in it.
struct CellPadding {
  int leading = theme::tableCellPadding;
  int trailing = theme::tableCellPadding;

  CellPadding(int column, int columnCount) {
    if (column == 0) { leading = theme::panelPadding; }
    if (column + 1 == columnCount) { trailing = theme::panelPadding; }
  }

  [[nodiscard]] int sum() const { return leading + trailing; }
  [[nodiscard]] QRect within(const QRect& cell, Qt::LayoutDirection side) const {
    return QStyle::visualRect(side, cell, cell.adjusted(leading, 0, -trailing, 0));
  }
};

CellPadding paddingOf(const QModelIndex& cell) {
  return {cell.column(), cell.model()->columnCount()};
}

/// `alignment` is the visual one; the text itself runs in its own direction, whatever the
/// desktop's.
void drawElided(QPainter& painter, const QRect& box, const QString& text, Qt::Alignment alignment) {
  painter.setLayoutDirection(Qt::LayoutDirectionAuto);
  const auto shown = painter.fontMetrics().elidedText(text, Qt::ElideRight, box.width());
  painter.drawText(box, static_cast<int>(alignment | Qt::AlignAbsolute) | Qt::TextSingleLine,
                   shown);
}

/// Draws the dot at the leading end of `box` and gives what is left for the text.
QRect drawDot(QPainter& painter, const QRect& box, const QColor& color, Qt::LayoutDirection side) {
  const int size = theme::grown(theme::stateDotSize);
  const QRect dot(box.left(), box.center().y() - size / 2 + 1, size, size);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawEllipse(QStyle::visualRect(side, box, dot));
  const auto rest = box.adjusted(dotWidth(), 0, theme::tableCellPadding, 0);
  return QStyle::visualRect(side, box, rest);
}

/// A row of column titles in the secondary colour above a line.
class PlainHeader final : public QHeaderView {
 public:
  explicit PlainHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setHighlightSections(false);
    setSectionsClickable(false);
    viewport()->setAutoFillBackground(false);
  }

  /// Lets titles of several words take a line for each.
  void wrapTitles(bool wraps) { wraps_ = wraps; }
  [[nodiscard]] bool wrapsTitles() const { return wraps_; }
  /// What a column needs for its title, in lines of one word or in one line.
  [[nodiscard]] int titleWidth(int section, bool wraps) const {
    int widest = 0;
    for (const auto& line : linesOf(section, wraps)) {
      widest = std::max(widest, widthOf(line));
    }
    return widest + CellPadding(section, count()).sum();
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QHeaderView::paintEvent(event);
    QPainter(viewport())
        .fillRect(QRect(0, height() - 1, width(), 1), theme::outlineColor(palette()));
  }

  void paintSection(QPainter* painter, const QRect& rect, int section) const override {
    painter->setFont(font());
    painter->setPen(theme::textColor(theme::TextColor::secondary, palette()));
    const auto alignment =
        Qt::Alignment(model()->headerData(section, Qt::Horizontal, Qt::TextAlignmentRole).toInt());
    const auto lines = linesOf(section, wraps_);
    const int height = painter->fontMetrics().height();
    QRect line = CellPadding(section, count()).within(rect, layoutDirection());
    line.setTop(rect.center().y() - static_cast<int>(lines.size()) * height / 2 + 1);
    line.setHeight(height);
    for (const auto& text : lines) {
      drawElided(*painter, line, text, QStyle::visualAlignment(layoutDirection(), alignment));
      line.translate(0, height);
    }
  }

  [[nodiscard]] QSize sectionSizeFromContents(int section) const override {
    const auto lines = static_cast<int>(linesOf(section, wraps_).size());
    return {titleWidth(section, wraps_), heightOfRow(font(), lines)};
  }

 private:
  [[nodiscard]] QStringList linesOf(int section, bool wraps) const {
    const auto title = model()->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
    return wraps ? title.split(u' ') : QStringList(title);
  }

  /// Kept, as each layout asks for them.
  [[nodiscard]] int widthOf(const QString& line) const {
    if (measured_ != font()) {
      measured_ = font();
      widths_.clear();
    }
    const auto known = widths_.constFind(line);
    if (known != widths_.cend()) { return *known; }
    return *widths_.insert(line, QFontMetrics(font()).horizontalAdvance(line));
  }

  bool wraps_ = false;
  mutable QFont measured_;
  mutable QHash<QString, int> widths_;  ///< of the titles' lines in that font
};

/// Draws a cell's text, the dot before it when it has one, and the line beneath its row.
class FigureCellDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override {
    const int dot = index.data(dotColorRole).isValid() ? dotWidth() : 0;
    const int text = digits(option.font).widthOf(index.data().toString());
    return {text + paddingOf(index).sum() + dot, option.fontMetrics.height()};
  }

  /// A text that does not fit shows itself whole.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    const bool hasOwnTip = !index.data(Qt::ToolTipRole).toString().isEmpty();
    if (event->type() != QEvent::ToolTip || hasOwnTip || !index.isValid() ||
        sizeHint(option, index).width() <= option.rect.width()) {
      return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    QToolTip::showText(event->globalPos(),
                       plainToolTip(toUtf8(index.data(Qt::DisplayRole).toString())), view);
    return true;
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    painter->save();
    auto box = paddingOf(index).within(option.rect, option.direction);
    const auto dotColor = index.data(dotColorRole);
    if (dotColor.isValid()) {
      const auto color = static_cast<theme::MarkColor>(dotColor.toInt());
      box = drawDot(*painter, box, theme::markColor(color, option.palette), option.direction);
    }
    painter->setFont(option.font);
    const bool isChosen = option.state.testFlag(QStyle::State_Selected);
    if (isChosen) { painter->fillRect(option.rect, theme::selectionColor(option.palette)); }
    painter->setPen(isChosen ? option.palette.color(QPalette::HighlightedText)
                             : theme::textColor(theme::TextColor::primary, option.palette));
    const auto alignment = Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt());
    digits(option.font)
        .draw(*painter, box, index.data(Qt::DisplayRole).toString(),
              QStyle::visualAlignment(option.direction, alignment));
    painter->setRenderHint(QPainter::Antialiasing, false);
    if (index.row() + 1 < index.model()->rowCount()) {
      painter->fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                        theme::outlineColor(option.palette));
    }
    if (option.state.testFlag(QStyle::State_HasFocus)) {
      painter->setPen(theme::accentColor(option.palette));
      painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
    }
    painter->restore();
  }

  [[nodiscard]] const EqualDigits& digits(const QFont& font) const {
    return EqualDigits::of(font, digits_);
  }

 private:
  mutable std::optional<EqualDigits> digits_;
};
}  // namespace

FigureTable::FigureTable(QWidget* parent) : QTableView(parent) {
  setHorizontalHeader(new PlainHeader(this));
  setItemDelegate(new FigureCellDelegate(this));
  setFrameShape(QFrame::NoFrame);
  useThinScrollBars(*this);
  setShowGrid(false);
  setWordWrap(false);
  setSelectionMode(QAbstractItemView::NoSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  viewport()->setAutoFillBackground(false);  // the panel around it has the ground and the corners
  applyStyle();
}

void FigureTable::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() != QEvent::ApplicationFontChange) { return; }
  applyStyle();
  fitColumns();
}

void FigureTable::applyStyle() {
  setFont(theme::textFont(theme::TextStyle::calloutFigure));
  horizontalHeader()->setFont(theme::textFont(theme::TextStyle::captionSemibold));
  verticalHeader()->setMinimumSectionSize(rowHeight());
  verticalHeader()->setDefaultSectionSize(rowHeight());
}

int FigureTable::cellWidth(int column, std::string_view text, bool hasDot) const {
  const auto& delegate = static_cast<const FigureCellDelegate&>(*itemDelegate());
  return delegate.digits(font()).widthOf(toQString(text)) +
         CellPadding(column, model()->columnCount()).sum() + (hasDot ? dotWidth() : 0);
}

int FigureTable::widestCell(int column) const {
  QSet<QString> forms;  // of thousands of dates and figures, a few dozen
  int widest = 0;
  for (int row = 0; row < model()->rowCount(); ++row) {
    const auto form = EqualDigits::formOf(model()->index(row, column).data().toString());
    if (forms.contains(form)) { continue; }
    forms.insert(form);
    widest = std::max(widest, cellWidth(column, toUtf8(form)));
  }
  return widest;
}

int FigureTable::rowHeight() const { return heightOfRow(font()); }

int FigureTable::titleWidth(int column, bool wraps) const {
  return static_cast<const PlainHeader*>(horizontalHeader())->titleWidth(column, wraps);
}

void FigureTable::wrapTitles(bool wraps) {
  auto& header = static_cast<PlainHeader&>(*horizontalHeader());
  if (header.wrapsTitles() == wraps) { return; }
  header.wrapTitles(wraps);
  updateGeometries();
}

void FigureTable::addCopyCommands() {
  setContextMenuPolicy(Qt::ActionsContextMenu);
  auto* const copyCell = new QAction(tr("Copy"), this);
  copyCell->setShortcut(QKeySequence::Copy);
  copyCell->setShortcutContext(Qt::WidgetShortcut);
  connect(copyCell, &QAction::triggered, this,
          [this] { copyColumns(currentIndex().column(), currentIndex().column()); });
  auto* const copyRow = new QAction(tr("Copy Row"), this);
  connect(copyRow, &QAction::triggered, this,
          [this] { copyColumns(0, model()->columnCount() - 1); });
  addActions({copyCell, copyRow});
}

void FigureTable::copyColumns(int first, int last) const {
  if (!currentIndex().isValid()) { return; }
  QStringList texts;
  for (int column = first; column <= last; ++column) {
    texts.append(currentIndex().siblingAtColumn(column).data().toString());
  }
  QGuiApplication::clipboard()->setText(texts.join(u'\t'));
}
}  // namespace orvane
