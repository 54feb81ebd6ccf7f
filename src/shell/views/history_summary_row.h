#pragma once

#include <QWidget>
#include <vector>

#include "platform/text/locale_format.h"
#include "pool/history_day.h"
#include "shell/view_models/metric.h"
#include "shell/views/metric_block.h"

namespace orvane {

/// A band of totals over the daily history, with room for further figures and for a control of
/// the caller's at its end.
class BraiinsHistorySummaryRow final : public QWidget {
  Q_OBJECT

 public:
  /// `trailing`: stands at the end of the row; the row owns it.
  BraiinsHistorySummaryRow(const LocaleFormat& format, QWidget* trailing,
                           QWidget* parent = nullptr);

  void showSummary(const BraiinsHistorySummary& summary, const std::vector<Metric>& extraMetrics);

 private:
  const LocaleFormat& format_;
  MetricRow<SummaryMetric>* metrics_;
};

}  // namespace orvane
