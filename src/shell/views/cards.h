#pragma once

#include "shell/view_models/card_contents.h"
#include "shell/views/balance_actions.h"
#include "shell/views/card_parts.h"
#include "shell/views/frames.h"

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
