#pragma once

#include <QWidget>
#include <vector>

#include "shell/view_models/block_reward_line.h"

namespace orvane {

class SymbolLabel;
class TextLabel;

/// The block rewards of the watched address, a line each.
class BlockRewardList final : public QWidget {
  Q_OBJECT

 public:
  explicit BlockRewardList(QWidget* parent = nullptr);
  void showLines(const std::vector<BlockRewardLine>& lines);

 private:
  struct Line {
    QWidget* row;
    SymbolLabel* symbol;
    TextLabel* text;
  };

  [[nodiscard]] Line makeLine();

  std::vector<Line> lines_;
};

}  // namespace orvane
