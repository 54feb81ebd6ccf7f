#include "shell/views/metric_block.h"

#include <QVBoxLayout>

#include "shell/views/flow_layout.h"
#include "shell/views/qt_text.h"

namespace orvane {
namespace {

using theme::TextColor;
using theme::TextStyle;

/// A screen reader that stands on the figure also says what it is.
void showFigure(TextLabel& label, const Metric& metric) {
  label.showText(metric.value);
  const auto title = toQString(metric.title);
  if (title != label.accessibleDescription()) { label.setAccessibleDescription(title); }
}

QVBoxLayout* column(QWidget* parent) {
  auto* const layout = new QVBoxLayout(parent);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(theme::metricLineSpacing);
  layout->setAlignment(Qt::AlignTop | Qt::AlignLeading);
  return layout;
}

}  // namespace

MetricBlock::MetricBlock(QWidget* parent)
    : QWidget(parent),
      title_(new TextLabel(TextStyle::caption, TextColor::secondary, this)),
      value_(new TextLabel(TextStyle::titleMediumFigure, TextColor::primary, this)),
      fiatValue_(new TextLabel(TextStyle::calloutFigure, TextColor::secondary, this)) {
  value_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* const lines = column(this);
  lines->addWidget(title_);
  lines->addWidget(value_);
  lines->addWidget(fiatValue_);
}

void MetricBlock::showMetric(const Metric& metric) {
  title_->showText(metric.title);
  showFigure(*value_, metric);
  fiatValue_->showTextOrHide(metric.fiatValue ? "≈ " + *metric.fiatValue : std::string());
}

SummaryMetric::SummaryMetric(QWidget* parent)
    : QWidget(parent),
      title_(new TextLabel(TextStyle::captionBold, TextColor::secondary, this)),
      value_(new TextLabel(TextStyle::bodyBoldFigure, TextColor::primary, this)) {
  value_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* const lines = column(this);
  lines->addWidget(title_);
  lines->addWidget(value_);
}

void SummaryMetric::showMetric(const Metric& metric) {
  title_->showText(metric.title);
  showFigure(*value_, metric);
}

template <typename Block>
MetricRow<Block>::MetricRow(QWidget* parent) : QWidget(parent) {
  new FlowLayout(FlowLayout::Align::top, theme::metricSpacing, theme::metricRowGap, this);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

template <typename Block>
void MetricRow<Block>::showMetrics(const std::vector<Metric>& metrics) {
  while (blocks_.size() > metrics.size()) {
    delete blocks_.back();
    blocks_.pop_back();
  }
  while (blocks_.size() < metrics.size()) {
    blocks_.push_back(new Block(this));
    layout()->addWidget(blocks_.back());
  }
  for (std::size_t i = 0; i < metrics.size(); ++i) {
    blocks_[i]->showMetric(metrics[i]);
  }
  setVisible(!metrics.empty());
}

template class MetricRow<MetricBlock>;
template class MetricRow<SummaryMetric>;

}  // namespace orvane
