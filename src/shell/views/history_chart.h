#pragma once

#include <QListView>
#include <functional>
#include "shell/view_models/history_series.h"

namespace orvane {
class HistoryPicture;

/// The daily history as a picture: the rewards as bars and the average hash rate as a line, each
/// with an axis of its own from zero. Days that the pool does not list are gaps. A cursor follows
/// the pointer and the arrow keys from day to day.
///
/// It is a list, a row for each day of the series, so that a screen reader reads the day with the
/// cursor as it does in the table; only what is painted is a picture.
class HistoryChart final : public QListView {
  Q_OBJECT

 public:
  /// `format` outlives the chart.
  HistoryChart(const LocaleFormat& format, QWidget* parent);

  /// The words for a day, by its row in the history; asked for as they are needed.
  std::function<QString(std::size_t row)> dayText;
  /// Runs when the cursor has moved.
  std::function<void()> onMove;

  /// Shows another series and puts the cursor on its newest day.
  void showSeries(HistorySeries series);
  /// The day with the cursor; nothing without days.
  [[nodiscard]] const ChartDay* currentDay() const;

  [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
  void scrollTo(const QModelIndex& /*index*/, ScrollHint /*hint*/) override {}
  [[nodiscard]] QModelIndex indexAt(const QPoint& point) const override;
  void doItemsLayout() override;

 protected:
  [[nodiscard]] QModelIndex moveCursor(CursorAction action,
                                       Qt::KeyboardModifiers modifiers) override;
  [[nodiscard]] int horizontalOffset() const override { return 0; }
  [[nodiscard]] int verticalOffset() const override { return 0; }
  void setSelection(const QRect& /*rect*/, QItemSelectionModel::SelectionFlags /*how*/) override {}
  [[nodiscard]] QRegion visualRegionForSelection(const QItemSelection& /*items*/) const override {
    return {};
  }
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void updateGeometries() override {}
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  class Days;

  [[nodiscard]] HistoryPicture picture() const;

  const LocaleFormat& format_;
  HistorySeries series_;
  Days* days_;
};
}  // namespace orvane
