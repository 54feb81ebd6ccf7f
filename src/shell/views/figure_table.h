#pragma once

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTableView>
#include <Qt>
#include <algorithm>
#include <utility>
#include <vector>

namespace orvane {

/// A table whose rows are records of one kind. Texts are made when a cell is asked for, so that a
/// list of any length costs what is in sight.
template <typename Record>
class RowListModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// Shows `records` instead. Rows come and go at the end of the list, whatever changed, so that
  /// a view keeps its scroll position. Returns whether anything differed.
  bool setRecords(const std::vector<Record>& records) {
    if (records == records_) { return false; }
    const int before = rowCount();
    const int after = static_cast<int>(records.size());
    if (after > before) {
      beginInsertRows({}, before, after - 1);
      records_ = records;
      endInsertRows();
    } else if (after < before) {
      beginRemoveRows({}, after, before - 1);
      records_ = records;
      endRemoveRows();
    } else {
      records_ = records;
    }
    const int kept = std::min(before, after);
    if (kept > 0) { Q_EMIT dataChanged(index(0, 0), index(kept - 1, columnCount() - 1)); }
    return true;
  }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(records_.size());
  }

 protected:
  /// `index` is one of this model's own.
  [[nodiscard]] const Record& record(const QModelIndex& index) const {
    return records_.at(static_cast<std::size_t>(index.row()));
  }

 private:
  std::vector<Record> records_;
};

/// What a table's model says of a cell beyond its text.
enum TableRole {
  dotColorRole = Qt::UserRole  ///< a theme::MarkColor as int: a dot before the text
};

/// A row of column titles in the secondary colour above a line.
class PlainHeader final : public QHeaderView {
  Q_OBJECT

 public:
  explicit PlainHeader(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
  [[nodiscard]] QSize sectionSizeFromContents(int section) const override;
};

/// Draws a cell's text, the dot before it when it has one, and the line beneath its row.
class FigureCellDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

/// A table of texts in the design's style, that only shows: no selection, no sorting, no editing.
/// Only the rows in sight are asked for. The arrow keys move a cursor, for reading cell by cell.
class FigureTable : public QTableView {
  Q_OBJECT

 public:
  explicit FigureTable(QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void applyStyle();
};

}  // namespace orvane
