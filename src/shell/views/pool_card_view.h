#pragma once

#include "shell/view_models/pool_card.h"
#include "shell/views/balance_actions.h"
#include "shell/views/balance_row.h"
#include "shell/views/card_title_row.h"
#include "shell/views/frames.h"
#include "shell/views/metric_block.h"
#include "shell/views/status_row.h"

namespace orvane {

/// The card of the pool account.
class PoolCardView final : public Card {
  Q_OBJECT

 public:
  explicit PoolCardView(const BalanceActions& actions, QWidget* parent = nullptr);
  void showCard(const PoolCard& card, BalanceUnit unit);

 private:
  CardTitleRow* title_;
  BalanceRow* balance_;
  MetricRow<MetricBlock>* metrics_;
  StatusRow* status_;
};

}  // namespace orvane
