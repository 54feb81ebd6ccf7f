#include "shell/views/flow_layout.h"
#include <QStyle>
#include <QWidget>
#include <algorithm>
#include <optional>

namespace orvane {
/// Widgets that stand side by side.
struct FlowLayout::Row {
  std::vector<QLayoutItem*> items;
  std::vector<int> widths;
  std::optional<std::size_t> firstAtEnd;
  int ascent = 0;   ///< above the common baseline
  int descent = 0;  ///< below it
  int width = 0;

  [[nodiscard]] int height() const { return ascent + descent; }
};

FlowLayout::FlowLayout(Align align, int horizontalSpacing, int verticalSpacing, QWidget* parent)
    : QLayout(parent),
      align_(align),
      horizontalSpacing_(horizontalSpacing),
      verticalSpacing_(verticalSpacing) {
  setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() {
  if (twin_) { twin_->twin_ = nullptr; }
}

void FlowLayout::wrapAlike(FlowLayout& one, FlowLayout& other) {
  one.twin_ = &other;
  other.twin_ = &one;
}

void FlowLayout::addItem(QLayoutItem* item) { items_.emplace_back(item); }
void FlowLayout::addStretch() { addItem(new QSpacerItem(0, 0)); }
int FlowLayout::count() const { return static_cast<int>(items_.size()); }

QLayoutItem* FlowLayout::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
  if (index < 0 || index >= count()) { return nullptr; }
  const auto position = items_.begin() + index;
  auto* const taken = position->release();
  items_.erase(position);
  return taken;
}

int FlowLayout::heightForWidth(int width) const {
  int height = 0;
  for (const auto& row : rows(width - marginSize().width())) {
    height += row.height() + (height > 0 ? verticalSpacing_ : 0);
  }
  return height + marginSize().height();
}

QSize FlowLayout::sizeHint() const {
  const auto whole = rows(QWIDGETSIZE_MAX);
  if (whole.empty()) { return marginSize(); }
  return QSize(whole.front().width, whole.front().height()) + marginSize();
}

QSize FlowLayout::minimumSize() const {
  QSize size(0, 0);
  for (const auto& item : items_) {
    if (!item->isEmpty()) { size = size.expandedTo(item->minimumSize()); }
  }
  return size + marginSize();
}

void FlowLayout::setGeometry(const QRect& rect) {
  QLayout::setGeometry(rect);
  const auto whole = alignment() ? alignmentRect(rect) : rect;
  const auto inside = whole.marginsRemoved(contentsMargins());
  int top = inside.top();
  for (const auto& row : rows(inside.width())) {
    placeRow(row, QRect(inside.left(), top, inside.width(), row.height()));
    top += row.height() + verticalSpacing_;
  }
}

void FlowLayout::invalidate() {
  QLayout::invalidate();
  if (twin_ && twin_->parentWidget()) { twin_->parentWidget()->updateGeometry(); }
}

QSize FlowLayout::marginSize() const {
  const auto margins = contentsMargins();
  return {margins.left() + margins.right(), margins.top() + margins.bottom()};
}

std::vector<FlowLayout::Row> FlowLayout::rows(int width) const {
  const bool oneEach = twin_ && twin_->isOnShow() && twin_->filledRows(width, false).size() > 1;
  return filledRows(width, oneEach);
}

bool FlowLayout::isOnShow() const {
  const auto* const parent = parentWidget();
  return parent && parent->isVisibleTo(parent->window());
}

std::vector<FlowLayout::Row> FlowLayout::filledRows(int width, bool oneEach) const {
  std::vector<Row> rows;
  bool isAtEnd = false;
  for (const auto& item : items_) {
    isAtEnd = isAtEnd || item->spacerItem();
    if (item->isEmpty()) { continue; }
    const auto size = item->sizeHint();
    const int itemWidth = std::min(size.width(), width);
    if (rows.empty() || oneEach || rows.back().width + horizontalSpacing_ + itemWidth > width) {
      rows.emplace_back();
    }
    auto& row = rows.back();
    row.width += itemWidth + (row.items.empty() ? 0 : horizontalSpacing_);
    if (isAtEnd && !row.firstAtEnd) { row.firstAtEnd = row.items.size(); }
    const int ascent = baseline(*item);
    row.ascent = std::max(row.ascent, ascent);
    row.descent = std::max(row.descent, size.height() - ascent);
    row.items.push_back(item.get());
    row.widths.push_back(itemWidth);
  }
  return rows;
}

int FlowLayout::baseline(const QLayoutItem& item) const {
  if (align_ == Align::top) { return 0; }
  // The text of a label or a control stands in the middle of its height.
  const auto metrics = const_cast<QLayoutItem&>(item).widget()->fontMetrics();
  return (item.sizeHint().height() - metrics.height()) / 2 + metrics.ascent();
}

void FlowLayout::placeRow(const Row& row, const QRect& area) const {
  const auto direction = parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
  int left = area.left();
  for (std::size_t i = 0; i < row.items.size(); ++i) {
    auto& item = *row.items[i];
    if (row.firstAtEnd == i) { left += area.width() - row.width; }
    const int top = area.top() + row.ascent - baseline(item);
    const QRect place(left, top, row.widths[i], item.sizeHint().height());
    item.setGeometry(QStyle::visualRect(direction, area, place));
    left += row.widths[i] + horizontalSpacing_;
  }
}
}  // namespace orvane
