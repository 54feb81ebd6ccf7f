#include "shell/views/card_parts.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <array>

#include "shell/views/flow_layout.h"
#include "shell/views/labels.h"
#include "shell/views/qt_text.h"

namespace orvane {

namespace {

constexpr std::array units{BalanceUnit::sats, BalanceUnit::btc};

}  // namespace

CardTitleRow::CardTitleRow(const QString& title, const std::function<void(BalanceUnit)>& onChoose,
                           QWidget* parent)
    : QWidget(parent) {
  auto* const heading =
      new TextLabel(theme::TextStyle::headline, theme::TextColor::secondary, this);
  heading->setText(title);
  unit_ = new SegmentedPicker(
      tr("Unit"), {tr("sats"), tr("BTC")},
      [onChoose](int index) { onChoose(units.at(static_cast<std::size_t>(index))); }, this);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(heading);
  row->addStretch();
  row->addWidget(unit_);
}

void CardTitleRow::showUnit(BalanceUnit unit) {
  unit_->showChoice(unit == BalanceUnit::sats ? 0 : 1);
}

using theme::TextColor;
using theme::TextStyle;

BalanceRow::BalanceRow(const QString& title, QWidget* parent)
    : QWidget(parent),
      amount_(new FigureLabel(TextStyle::largeFigure, TextColor::primary, this)),
      fiatValue_(new TextLabel(TextStyle::title2MediumFigure, TextColor::secondary, this)) {
  auto* const row = new FlowLayout(FlowLayout::Align::baseline, theme::barPadding, 0, this);
  row->addWidget(amount_);
  row->addWidget(fiatValue_);
  amount_->setAccessibleDescription(title);
  amount_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  fiatValue_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void BalanceRow::showFigure(const BalanceFigure& figure) {
  amount_->showText(figure.text);
  amount_->setColor(figure.isPlaceholder ? TextColor::secondary : TextColor::primary);
  fiatValue_->showTextOrHide(figure.fiatValue ? "≈ " + *figure.fiatValue : std::string());
}

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

BlockRewardList::BlockRewardList(QWidget* parent) : QWidget(parent) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(theme::smallSpacing);
}

void BlockRewardList::showLines(const std::vector<BlockRewardLine>& lines) {
  while (lines_.size() > lines.size()) {
    delete lines_.back().row;
    lines_.pop_back();
  }
  while (lines_.size() < lines.size()) {
    lines_.push_back(makeLine());
  }
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const auto color = lines[i].isSpendable ? theme::TextColor::green : theme::TextColor::orange;
    lines_[i].symbol->showSymbol(QString::fromLatin1(lines[i].symbolName()), color);
    lines_[i].text->setColor(color);
    lines_[i].text->showText(lines[i].text);
  }
  setVisible(!lines.empty());
}

BlockRewardList::Line BlockRewardList::makeLine() {
  auto* const row = new QWidget(this);
  auto* const symbol = new SymbolLabel(row);
  auto* const text = new TextLabel(theme::TextStyle::calloutFigure, theme::TextColor::primary, row);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  text->setWordWrap(true);
  auto* const parts = new QHBoxLayout(row);
  parts->setContentsMargins(0, 0, 0, 0);
  parts->setSpacing(theme::smallSpacing);
  parts->addWidget(symbol);
  parts->addWidget(text, 1);
  layout()->addWidget(row);
  return {.row = row, .symbol = symbol, .text = text};
}

StatusRow::StatusRow(const QString& subject, std::function<void()> onRefresh, QWidget* parent)
    : QWidget(parent),
      symbol_(new SymbolLabel(this)),
      text_(new TextLabel(theme::TextStyle::callout, theme::TextColor::secondary, this)),
      button_(new RefreshButton(subject, std::move(onRefresh), this)) {
  text_->setWordWrap(true);
  text_->makeSelectable();
  symbol_->showSymbol(QStringLiteral("exclamationmark.triangle.fill"), theme::TextColor::orange);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(theme::smallSpacing);
  row->addWidget(symbol_);
  row->addWidget(text_, 1);
  row->addWidget(button_);
}

void StatusRow::showStatus(const StatusLine& status, const RefreshButtonState& refresh) {
  const bool isWarning = status.kind == StatusLine::Kind::warning;
  symbol_->setVisible(isWarning);
  text_->showText(status.text);
  text_->setColor(isWarning ? theme::TextColor::orange : theme::TextColor::secondary);
  button_->showState(refresh);
}

}  // namespace orvane
