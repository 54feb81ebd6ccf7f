#pragma once

#include <QListView>
#include <vector>
#include "shell/view_models/window_contents.h"

namespace orvane {
/// The block rewards of the watched address, a line each: as high as all of them, and at the cost
/// of those in sight. The arrow keys move a cursor; the line under it can be copied.
class BlockRewardList final : public QListView {
 public:
  explicit BlockRewardList(QWidget* parent);

  void showLines(const std::vector<BlockRewardLine>& lines);

  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  class Model;
  class Delegate;

  void applyStyle();
  void copyLine() const;
  void bringCursorIntoSight();

  Model* model_;
  Delegate* delegate_;
};
}  // namespace orvane
