#pragma once

#include <QTableView>

namespace orvane {

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
