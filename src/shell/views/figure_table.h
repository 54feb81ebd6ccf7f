#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>
#include "shell/views/qt_text.h"

namespace orvane {
/// What a table's model says of a cell beyond its text.
enum TableRole {
  dotColorRole = Qt::UserRole  ///< a theme::MarkColor as int: a dot before the text
};

struct TableColumn {
  const char* title;
  Qt::AlignmentFlag side = Qt::AlignRight;
};

/// A table whose rows are records of one kind. A text is made when its cell is asked for, so that a
/// list of any length costs what is in sight.
template <typename Record>
class RecordTableModel : public QAbstractTableModel {
 public:
  using Columns = std::span<const TableColumn>;

  /// `columns` outlives the model.
  RecordTableModel(Columns columns, QObject* parent)
      : QAbstractTableModel(parent), columns_(columns) {}

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
    announceTexts(std::min(before, after));
    return true;
  }

  /// To be called when the same records are to be told in other words.
  void retell() { announceTexts(rowCount()); }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(records_.size());
  }
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
  }

  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    const auto& record = records_.at(static_cast<std::size_t>(index.row()));
    if (role == Qt::DisplayRole) { return toQString(text(record, index.column())); }
    if (role == Qt::TextAlignmentRole) { return alignment(index.column()); }
    return detail(record, index.column(), role);
  }
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) { return {}; }
    if (role == Qt::DisplayRole) { return toQString(column(section).title); }
    return role == Qt::TextAlignmentRole ? QVariant(alignment(section)) : QVariant();
  }

 protected:
  /// What the table shows of `record` in a column.
  [[nodiscard]] virtual std::string text(const Record& record, int column) const = 0;
  /// What is to be said of a cell in the roles beyond text and alignment.
  [[nodiscard]] virtual QVariant detail(const Record& /*record*/, int /*column*/,
                                        int /*role*/) const {
    return {};
  }

 private:
  [[nodiscard]] const TableColumn& column(int index) const {
    return columns_[static_cast<std::size_t>(index)];
  }
  [[nodiscard]] int alignment(int index) const {
    return static_cast<int>(Qt::AlignVCenter | column(index).side);
  }
  /// Those of the first `rows` rows are others now.
  void announceTexts(int rows) {
    if (rows > 0) { Q_EMIT dataChanged(index(0, 0), index(rows - 1, columnCount() - 1)); }
  }

  Columns columns_;
  std::vector<Record> records_;
};

/// A table of texts in the design's style, that only shows: no selection, no sorting, no editing.
/// Only the rows in sight are asked for. The arrow keys move a cursor, for reading cell by cell.
class FigureTable : public QTableView {
 public:
  explicit FigureTable(QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;
  /// Gives the columns their widths, by the font at hand: a figure is never cut off. Called when
  /// the font has changed; a table calls it itself when it is made.
  virtual void fitColumns() {}
  /// What a cell with this text needs, and what a column's title needs, in one line or in a line
  /// for each of its words.
  [[nodiscard]] int cellWidth(int column, std::string_view text, bool hasDot = false) const;
  [[nodiscard]] int titleWidth(int column, bool wraps = false) const;
  /// What the longest text of a column needs.
  [[nodiscard]] int widestCell(int column) const;
  void wrapTitles(bool wraps);
  [[nodiscard]] int rowHeight() const;
  /// Lets the user copy the cell with the cursor (Control-C) or its row, for a table whose rows
  /// have no better form to be copied in than the texts shown.
  void addCopyCommands();

 private:
  void applyStyle();
  void copyColumns(int first, int last) const;
};
}  // namespace orvane
