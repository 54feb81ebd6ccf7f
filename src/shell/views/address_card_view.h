#pragma once

#include "shell/view_models/address_card.h"
#include "shell/views/balance_actions.h"
#include "shell/views/balance_row.h"
#include "shell/views/block_reward_list.h"
#include "shell/views/card_title_row.h"
#include "shell/views/frames.h"
#include "shell/views/metric_block.h"
#include "shell/views/status_row.h"

namespace orvane {

/// The card of the watched address.
class AddressCardView final : public Card {
  Q_OBJECT

 public:
  explicit AddressCardView(const BalanceActions& actions, QWidget* parent = nullptr);
  void showCard(const AddressCard& card, BalanceUnit unit);

 private:
  [[nodiscard]] QWidget* makeAddressChip();

  CardTitleRow* title_;
  TextLabel* address_;
  TextLabel* origin_;
  BalanceRow* balance_;
  MetricRow<MetricBlock>* metrics_;
  BlockRewardList* blockRewards_;
  StatusRow* status_;
};

}  // namespace orvane
