#include "shell/views/cards.h"

#include <QVBoxLayout>

#include "shell/views/flow_layout.h"

namespace orvane {

PoolCardView::PoolCardView(const BalanceActions& actions, QWidget* parent)
    : Card(theme::MarkColor::green, parent) {
  const auto title = tr("Braiins Pool balance");
  title_ = new CardTitleRow(title, actions.setUnit, this);
  balance_ = new BalanceRow(title, this);
  metrics_ = new MetricRow<MetricBlock>(this);
  status_ = new StatusRow(title, actions.refresh, this);
  for (QWidget* row : {static_cast<QWidget*>(title_), static_cast<QWidget*>(balance_),
                       static_cast<QWidget*>(metrics_), static_cast<QWidget*>(status_)}) {
    rows()->addWidget(row);
  }
}

void PoolCardView::showCard(const PoolCard& card, BalanceUnit unit) {
  title_->showUnit(unit);
  balance_->showFigure(card.balance);
  metrics_->showMetrics(card.metrics);
  status_->showStatus(card.status, card.refresh);
}

AddressCardView::AddressCardView(const BalanceActions& actions, QWidget* parent)
    : Card(theme::MarkColor::orange, parent) {
  const auto title = tr("Watched address");
  title_ = new CardTitleRow(title, actions.setUnit, this);
  auto* const chip = makeAddressChip();
  balance_ = new BalanceRow(title, this);
  metrics_ = new MetricRow<MetricBlock>(this);
  blockRewards_ = new BlockRewardList(this);
  status_ = new StatusRow(title, actions.refresh, this);
  rows()->addWidget(title_);
  rows()->addWidget(chip, 0, Qt::AlignLeading);
  rows()->addWidget(balance_);
  rows()->addWidget(metrics_);
  rows()->addWidget(blockRewards_);
  rows()->addWidget(status_);
}

QWidget* AddressCardView::makeAddressChip() {
  auto* const chip = new Chip(this);
  address_ = new FigureLabel(theme::TextStyle::calloutMonospaced, theme::TextColor::primary, chip);
  address_->makeSelectable();
  origin_ = new TextLabel(theme::TextStyle::caption, theme::TextColor::secondary, chip);
  origin_->setText(tr("from Hashwick"));
  auto* const line = new FlowLayout(FlowLayout::Align::baseline, theme::smallSpacing, 0, chip);
  line->setContentsMargins(theme::chipHorizontalPadding, theme::chipVerticalPadding,
                           theme::chipHorizontalPadding, theme::chipVerticalPadding);
  line->addWidget(address_);
  line->addWidget(origin_);
  return chip;
}

void AddressCardView::showCard(const AddressCard& card, BalanceUnit unit) {
  title_->showUnit(unit);
  address_->showText(card.address);
  origin_->setVisible(card.isFromMiner);
  balance_->showFigure(card.balance);
  metrics_->showMetrics(card.metrics);
  blockRewards_->showLines(card.blockRewards);
  status_->showStatus(card.status, card.refresh);
}

}  // namespace orvane
