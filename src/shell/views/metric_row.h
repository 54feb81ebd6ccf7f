#pragma once

#include <QWidget>
#include <vector>

#include "shell/view_models/window_contents.h"
#include "shell/views/labels.h"

namespace orvane {

/// A title above a figure, and its value in money beneath where it has one.
class MetricBlock final : public QWidget {
 public:
  MetricBlock(theme::TextStyle title, theme::TextStyle value, QWidget* parent);
  void showMetric(const Metric& metric);

 private:
  TextLabel* title_;
  TextLabel* value_;
  TextLabel* fiatValue_;
};

/// Any number of metrics side by side; they wrap when the width is used up.
class MetricRow final : public QWidget {
 public:
  using MakeBlock = MetricBlock* (*)(QWidget* parent);

  /// `makeBlock`: makes the blocks in the style of the place.
  explicit MetricRow(MakeBlock makeBlock, QWidget* parent = nullptr);
  void showMetrics(const std::vector<Metric>& metrics);

 private:
  MakeBlock makeBlock_;
  std::vector<MetricBlock*> blocks_;
};

}  // namespace orvane
