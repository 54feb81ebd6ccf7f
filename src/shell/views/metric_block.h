#pragma once

#include <QWidget>
#include <vector>

#include "shell/view_models/metric.h"
#include "shell/views/text_label.h"

namespace orvane {

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

}  // namespace orvane
