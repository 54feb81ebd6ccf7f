#pragma once

#include <QPainter>
#include <QPalette>
#include <QRect>
#include <optional>
#include <vector>
#include "shell/view_models/history_series.h"

namespace orvane {
/// Where everything of a history's picture is, at a size, and how it is drawn. Made when it is
/// needed; costs next to nothing until it paints.
class HistoryPicture {
 public:
  static constexpr int gap = 6;  ///< between an axis and its words, and around these

  /// `series` and `format` outlive the picture.
  HistoryPicture(const HistorySeries& series, const LocaleFormat& format, const QRect& area);

  /// The row of the listed day nearest to a place; there is at least one day.
  [[nodiscard]] std::size_t rowNearest(double x) const;
  /// The place of a row's day, from the top of the axes to their ground.
  [[nodiscard]] QRectF place(std::size_t row) const;

  /// `cursor`: the row that is marked; none: nothing is.
  void paint(QPainter& painter, const QPalette& palette, std::optional<std::size_t> cursor) const;

 private:
  [[nodiscard]] double x(std::int64_t day) const;  ///< its left edge
  [[nodiscard]] double dayTotal() const;
  [[nodiscard]] double lineTop(double hashRate) const;
  /// Where each column of an image of the bars begins to be filled.
  [[nodiscard]] std::vector<int> barTops(QSize size) const;
  /// One for each day, or for each column of pixels where it has several, at their mean.
  [[nodiscard]] std::vector<QPointF> linePoints() const;
  void paintLegend(QPainter& painter, const QPalette& palette) const;
  void paintValueAxes(QPainter& painter, const QPalette& palette) const;
  void paintDateAxis(QPainter& painter, const QPalette& palette) const;
  void paintBars(QPainter& painter, const QPalette& palette) const;
  void paintLine(QPainter& painter, const QPalette& palette) const;

  const HistorySeries& series_;
  const LocaleFormat& format_;
  QRect area_;
  QFont font_;
  QRectF plot_;  ///< within the axes
  double dayWidth_ = 0;
};
}  // namespace orvane
