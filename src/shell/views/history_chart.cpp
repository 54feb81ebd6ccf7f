#include "shell/views/history_chart.h"
#include <QAbstractListModel>
#include <QAccessible>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>
#include "shell/views/colors.h"
#include "shell/views/history_picture.h"

namespace orvane {
namespace {
constexpr int daysOfPage = 30;  ///< that Page Up and Page Down move

std::size_t rowOf(const QModelIndex& index) { return static_cast<std::size_t>(index.row()); }
}  // namespace

/// A row for each day of the chart, with the words for it.
class HistoryChart::Days final : public QAbstractListModel {
 public:
  explicit Days(HistoryChart& chart) : QAbstractListModel(&chart), chart_(chart) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(chart_.series_.days.size());
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole || !chart_.dayText) { return {}; }
    return chart_.dayText(chart_.series_.days.at(rowOf(index)).row);
  }
  void replace(HistorySeries series) {
    beginResetModel();
    chart_.series_ = std::move(series);
    endResetModel();
  }

 private:
  HistoryChart& chart_;
};

HistoryChart::HistoryChart(const LocaleFormat& format, QWidget* parent)
    : QListView(parent), format_(format), days_(new Days(*this)) {
  setModel(days_);
  setAccessibleName(tr("Daily history"));
  setFrameShape(QFrame::NoFrame);
  setSelectionMode(NoSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* const copy = new QAction(tr("Copy"), this);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this,
          [this] { QGuiApplication::clipboard()->setText(currentIndex().data().toString()); });
  addAction(copy);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  viewport()->setMouseTracking(true);
  viewport()->setAutoFillBackground(false);  // the panel around it has the ground
}

void HistoryChart::showSeries(HistorySeries series) {
  days_->replace(std::move(series));
  setCurrentIndex(days_->index(days_->rowCount() - 1));
  viewport()->update();
}

const ChartDay* HistoryChart::currentDay() const {
  const auto cursor = currentIndex();
  return cursor.isValid() ? &series_.days.at(rowOf(cursor)) : nullptr;
}

HistoryPicture HistoryChart::picture() const { return {series_, format_, viewport()->rect()}; }

QRect HistoryChart::visualRect(const QModelIndex& index) const {
  return index.isValid() ? picture().place(rowOf(index)).toAlignedRect() : QRect();
}

QModelIndex HistoryChart::indexAt(const QPoint& point) const {
  if (series_.days.empty()) { return {}; }
  return days_->index(static_cast<int>(picture().rowNearest(point.x())));
}

QModelIndex HistoryChart::moveCursor(CursorAction action, Qt::KeyboardModifiers /*modifiers*/) {
  const int last = days_->rowCount() - 1;
  int row = currentIndex().row();
  switch (action) {
    case MoveLeft:
    case MoveUp:
    case MovePrevious:
      row -= 1;
      break;
    case MoveRight:
    case MoveDown:
    case MoveNext:
      row += 1;
      break;
    case MovePageUp:
      row -= daysOfPage;
      break;
    case MovePageDown:
      row += daysOfPage;
      break;
    case MoveHome:
      row = 0;
      break;
    case MoveEnd:
      row = last;
      break;
  }
  return days_->index(std::clamp(row, 0, std::max(last, 0)));
}

void HistoryChart::doItemsLayout() {
  // A list would give each row a place of its own.
  QAbstractItemView::doItemsLayout();  // NOLINT(bugprone-parent-virtual-call): on purpose
}

void HistoryChart::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  // A list would look for the row among the places that it has given to rows.
  QAbstractItemView::currentChanged(current, previous);  // NOLINT(bugprone-parent-virtual-call)
  viewport()->update();
  if (current.isValid() && hasFocus()) {
    QAccessibleEvent moved(this, QAccessible::Focus);
    moved.setChild(current.row());
    QAccessible::updateAccessibility(&moved);
  }
  if (onMove) { onMove(); }
}

void HistoryChart::mouseMoveEvent(QMouseEvent* event) {
  const auto index = indexAt(event->position().toPoint());
  if (index.isValid()) { setCurrentIndex(index); }
}

void HistoryChart::changeEvent(QEvent* event) {
  QListView::changeEvent(event);
  if (event->type() == QEvent::ApplicationFontChange) { viewport()->update(); }
}

void HistoryChart::paintEvent(QPaintEvent* /*event*/) {
  if (series_.days.empty()) { return; }
  const auto cursor = currentIndex();
  QPainter painter(viewport());
  picture().paint(painter, palette(),
                  cursor.isValid() ? std::optional(rowOf(cursor)) : std::nullopt);
  if (!hasFocus()) { return; }
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(theme::accentColor(palette()));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
}
}  // namespace orvane
