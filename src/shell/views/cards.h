#pragma once

#include "core/balance_store.h"
#include "shell/view_models/window_contents.h"
#include "shell/views/controls.h"
#include "shell/views/frames.h"
#include "shell/views/labels.h"

namespace orvane {
class AddressCardView;
class BalanceRow;
class BlockRewardList;
class StatusRow;

/// The card of the pool account.
class PoolCardView final : public Card {
  friend void placeValuesAlike(PoolCardView& pool, AddressCardView& address);

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
  friend void placeValuesAlike(PoolCardView& pool, AddressCardView& address);

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

/// Has the value in money in the same place in both cards, as long as both show: beneath the figure
/// in each when it does not fit beside it in one.
void placeValuesAlike(PoolCardView& pool, AddressCardView& address);
}  // namespace orvane
