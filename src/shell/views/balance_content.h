#pragma once

#include <QWidget>
#include <string>

#include "core/balance_state.h"
#include "platform/text/locale_format.h"
#include "shell/views/address_card_view.h"
#include "shell/views/balance_actions.h"
#include "shell/views/column_area.h"
#include "shell/views/history_section.h"
#include "shell/views/pool_card_view.h"
#include "shell/views/settings_section.h"
#include "shell/views/workers_section.h"

namespace orvane {

/// Everything in the main window. It shows a state and passes on what the user does; it knows
/// neither the store nor when the state changes.
class BalanceContent final : public QWidget {
  Q_OBJECT

 public:
  /// `state` and `format` outlive the content. `poolWebHost`: host of the account link.
  BalanceContent(const BalanceState& state, const LocaleFormat& format,
                 const std::string& poolWebHost, BalanceActions actions, QWidget* parent = nullptr);

  /// Brings every part up to date with the state; only what differs is touched, so that focus,
  /// typed text, selections and scroll positions stay.
  void showState();

  /// The least size, so that a window opens with the design's own proportions.
  [[nodiscard]] QSize sizeHint() const override { return minimumSize(); }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void layOut();
  void askForSize();

  const BalanceState& state_;
  const LocaleFormat& format_;
  const BalanceActions actions_;
  ColumnArea* leftColumn_;
  ColumnArea* rightColumn_;
  QWidget* columnDivider_;
  PoolCardView* poolCard_;
  AddressCardView* addressCard_;
  SettingsSection* settings_;
  WorkersSection* workers_;
  HistorySection* history_;
};

}  // namespace orvane
