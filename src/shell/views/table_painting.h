#pragma once

#include <QHeaderView>
#include <QStyledItemDelegate>

namespace orvane {

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

}  // namespace orvane
