#pragma once

#include "core/balance_store.h"
#include "shell/view_models/window_contents.h"
#include "shell/views/controls.h"
#include "shell/views/frames.h"
#include "shell/views/labels.h"

namespace orvane {
class BalanceRow;
class BlockRewardList;
class StatusRow;

/// The card of the pool account.
class PoolCardView final : public Card {
 public:
  /// `store` outlives the card.
  explicit PoolCardView(BalanceStore& store, QWidget* parent = nullptr);
  void showCard(const PoolCard& card, BalanceUnit unit);

 private:
  SegmentedPicker* unit_;
  BalanceRow* balance_;
  MetricRow* metrics_;
  StatusRow* status_;
};

/// The card of the watched address.
class AddressCardView final : public Card {
 public:
  /// `store` outlives the card.
  explicit AddressCardView(BalanceStore& store, QWidget* parent = nullptr);
  void showCard(const AddressCard& card, BalanceUnit unit);

 private:
  [[nodiscard]] QWidget* makeAddressChip();

  SegmentedPicker* unit_;
  TextLabel* address_;
  TextLabel* origin_;
  BalanceRow* balance_;
  MetricRow* metrics_;
  BlockRewardList* blockRewards_;
  StatusRow* status_;
};
}  // namespace orvane
