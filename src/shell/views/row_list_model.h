#pragma once

#include <QAbstractTableModel>
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

}  // namespace orvane
