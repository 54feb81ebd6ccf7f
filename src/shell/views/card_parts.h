#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "core/balance_state.h"
#include "shell/view_models/card_contents.h"
#include "shell/views/buttons.h"
#include "shell/views/labels.h"
#include "shell/views/segmented_picker.h"

namespace orvane {

/// The first row of a card: its title and the choice of the unit.
class CardTitleRow final : public QWidget {
  Q_OBJECT

 public:
  CardTitleRow(const QString& title, const std::function<void(BalanceUnit)>& onChoose,
               QWidget* parent = nullptr);
  void showUnit(BalanceUnit unit);

 private:
  SegmentedPicker* unit_;
};

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

/// A caption above a figure, and its value in money beneath, as in the cards.
class MetricBlock final : public QWidget {
  Q_OBJECT

 public:
  explicit MetricBlock(QWidget* parent = nullptr);
  void showMetric(const Metric& metric);

 private:
  TextLabel* title_;
  TextLabel* value_;
  TextLabel* fiatValue_;
};

/// A title above a figure in bold, as in the row of totals.
class SummaryMetric final : public QWidget {
  Q_OBJECT

 public:
  explicit SummaryMetric(QWidget* parent = nullptr);
  void showMetric(const Metric& metric);

 private:
  TextLabel* title_;
  TextLabel* value_;
};

/// Any number of metrics side by side; they wrap when the width is used up.
template <typename Block>
class MetricRow final : public QWidget {
 public:
  explicit MetricRow(QWidget* parent = nullptr);
  void showMetrics(const std::vector<Metric>& metrics);

 private:
  std::vector<Block*> blocks_;
};

extern template class MetricRow<MetricBlock>;
extern template class MetricRow<SummaryMetric>;

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

/// The line beneath a card's figures: when they were read, or what went wrong, and a button that
/// reads them again.
class StatusRow final : public QWidget {
  Q_OBJECT

 public:
  StatusRow(const QString& subject, std::function<void()> onRefresh, QWidget* parent = nullptr);
  void showStatus(const StatusLine& status, const RefreshButtonState& refresh);

 private:
  SymbolLabel* symbol_;
  TextLabel* text_;
  RefreshButton* button_;
};

}  // namespace orvane
