#include "shell/views/metric_row.h"

#include <QVBoxLayout>

#include "shell/views/flow_layout.h"
#include "shell/views/qt_text.h"

namespace orvane {

using theme::TextColor;
using theme::TextStyle;

MetricBlock::MetricBlock(TextStyle title, TextStyle value, QWidget* parent)
    : QWidget(parent),
      title_(new TextLabel(title, TextColor::secondary, this)),
      value_(new TextLabel(value, TextColor::primary, this)),
      fiatValue_(new TextLabel(TextStyle::calloutFigure, TextColor::secondary, this)) {
  value_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* const lines = new QVBoxLayout(this);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(theme::metricLineSpacing);
  lines->setAlignment(Qt::AlignTop | Qt::AlignLeading);
  lines->addWidget(title_);
  lines->addWidget(value_);
  lines->addWidget(fiatValue_);
}

void MetricBlock::showMetric(const Metric& metric) {
  title_->showText(metric.title);
  value_->showText(metric.value);
  fiatValue_->showTextOrHide(metric.fiatValue);
  // A screen reader that stands on the figure also says what it is.
  const auto title = toQString(metric.title);
  if (title != value_->accessibleDescription()) { value_->setAccessibleDescription(title); }
}

MetricRow::MetricRow(MakeBlock makeBlock, QWidget* parent)
    : QWidget(parent), makeBlock_(makeBlock) {
  new FlowLayout(FlowLayout::Align::top, theme::metricSpacing, theme::metricRowGap, this);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void MetricRow::showMetrics(const std::vector<Metric>& metrics) {
  while (blocks_.size() > metrics.size()) {
    delete blocks_.back();
    blocks_.pop_back();
  }
  while (blocks_.size() < metrics.size()) {
    blocks_.push_back(makeBlock_(this));
    layout()->addWidget(blocks_.back());
  }
  for (std::size_t i = 0; i < metrics.size(); ++i) {
    blocks_[i]->showMetric(metrics[i]);
  }
  setVisible(!metrics.empty());
}

}  // namespace orvane
