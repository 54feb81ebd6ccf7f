#include "shell/views/history_summary_row.h"

#include <QHBoxLayout>

#include "shell/view_models/history_section.h"

namespace orvane {

BraiinsHistorySummaryRow::BraiinsHistorySummaryRow(const LocaleFormat& format, QWidget* trailing,
                                                   QWidget* parent)
    : QWidget(parent), format_(format), metrics_(new MetricRow<SummaryMetric>(this)) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(theme::summaryHorizontalPadding, theme::summaryVerticalPadding,
                          theme::summaryHorizontalPadding, theme::summaryVerticalPadding);
  row->setSpacing(theme::barPadding);
  row->addWidget(metrics_, 1, Qt::AlignVCenter);
  row->addWidget(trailing, 0, Qt::AlignVCenter);
}

void BraiinsHistorySummaryRow::showSummary(const BraiinsHistorySummary& summary,
                                           const std::vector<Metric>& extraMetrics) {
  metrics_->showMetrics(historySummaryMetrics(summary, format_, extraMetrics));
}

}  // namespace orvane
