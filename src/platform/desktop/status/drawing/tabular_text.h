#pragma once

#include <QFont>
#include <QPainter>
#include <QPointF>
#include <QSizeF>
#include <QString>

namespace orvane {

/// Text in the semibold interface font in which every digit takes the width of the widest one, so
/// that figures do not jump when they change. Qt 6.4 cannot ask a font for its tabular digits.
class TabularText {
 public:
  /// `pixelSize` is the height of the font.
  explicit TabularText(double pixelSize);

  [[nodiscard]] QSizeF size(const QString& text) const;
  /// The height of a digit above the baseline.
  [[nodiscard]] double digitHeight() const;
  void draw(QPainter& painter, const QPointF& baselineStart, const QString& text) const;

 private:
  QFont font_;
  double digitWidth_;
};

}  // namespace orvane
