#pragma once

#include <QWidget>

#include "shell/view_models/card_parts.h"
#include "shell/views/figure_label.h"

namespace orvane {

/// A card's large figure with its value in money beside it, on one baseline.
class BalanceRow final : public QWidget {
  Q_OBJECT

 public:
  /// `title`: what the figure is, for screen readers.
  explicit BalanceRow(const QString& title, QWidget* parent = nullptr);
  void showFigure(const BalanceFigure& figure);

 private:
  FigureLabel* amount_;
  TextLabel* fiatValue_;
};

}  // namespace orvane
