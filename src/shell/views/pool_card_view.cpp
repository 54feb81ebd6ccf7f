#include "shell/views/pool_card_view.h"

#include <QVBoxLayout>

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

}  // namespace orvane
