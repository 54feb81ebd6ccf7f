#pragma once

#include <QLayout>
#include <memory>
#include <vector>

namespace orvane {
/// Lays widgets out in a row, each as wide as it wants to be, and goes on in a further row when
/// the width is used up. Widgets of a row stand on one text baseline, or at the row's top.
class FlowLayout final : public QLayout {
 public:
  enum class Align { top, baseline };
  FlowLayout(Align align, int horizontalSpacing, int verticalSpacing, QWidget* parent = nullptr);
  ~FlowLayout() override;
  /// From here on, where one of the two needs a second row every widget in both has a row of its
  /// own, as long as both are on show. Both are as wide.
  static void wrapAlike(FlowLayout& one, FlowLayout& other);
  void addItem(QLayoutItem* item) override;
  /// What is added from here on stands at the end of its row.
  void addStretch();
  [[nodiscard]] int count() const override;
  [[nodiscard]] QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSize() const override;
  void setGeometry(const QRect& rect) override;
  void invalidate() override;

 private:
  struct Row;

  /// The rows in which a content of `width` is laid out.
  [[nodiscard]] std::vector<Row> rows(int width) const;
  [[nodiscard]] std::vector<Row> filledRows(int width, bool oneEach) const;
  [[nodiscard]] bool isOnShow() const;
  [[nodiscard]] QSize marginSize() const;
  [[nodiscard]] int baseline(const QLayoutItem& item) const;
  void placeRow(const Row& row, const QRect& area) const;

  Align align_;
  int horizontalSpacing_;
  int verticalSpacing_;
  FlowLayout* twin_ = nullptr;  ///< that wraps alike
  std::vector<std::unique_ptr<QLayoutItem>> items_;
};
}  // namespace orvane
