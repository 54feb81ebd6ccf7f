#pragma once

#include <QObject>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "core/balance_state.h"
#include "core/balance_store.h"
#include "platform/desktop/menu.h"
#include "platform/text/locale_format.h"
#include "shell/views/balance_actions.h"
#include "shell/views/cards.h"
#include "shell/views/frames.h"
#include "shell/views/history_section.h"
#include "shell/views/settings_section.h"
#include "shell/views/workers_section.h"

namespace orvane {

/// Folds any number of announcements into one update a turn of the event loop. A view that is
/// not on screen is not updated until it shows again.
class CoalescedUpdate final : public QObject {
  Q_OBJECT

 public:
  /// `view` outlives this object.
  CoalescedUpdate(QWidget& view, std::function<void()> update);

  void request();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void run();

  QWidget& view_;
  std::function<void()> update_;
  bool isNeeded_ = false;
  bool isQueued_ = false;
};

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

/// The bar at the bottom of the main window: closes it, and holds a menu of the application's
/// commands when there are any.
class CloseBar final : public QWidget {
  Q_OBJECT

 public:
  CloseBar(const std::function<void()>& onClose, const Menu& commands, QWidget* parent = nullptr);
};

/// What the view is told once, when it is made.
struct BalanceViewSettings {
  std::string poolWebHost;  ///< host of the pool's web site, for the account link
  Menu commands = {};       ///< see BalanceActions
};

/// The content of the main window: shows the store's figures and redraws, once per turn of the
/// event loop, when the store announces a change. Asks its window for the least size that the
/// parts on show need, as far as the screen has it.
class BalanceView final : public QWidget {
  Q_OBJECT

 public:
  /// `store` and `format` outlive the view. `onClose` runs for the Close button and for Escape.
  BalanceView(BalanceStore& store, const LocaleFormat& format, const BalanceViewSettings& settings,
              std::function<void()> onClose, QWidget* parent = nullptr);

 private:
  BalanceContent* content_;
  CoalescedUpdate update_;
  Announcer::Subscription subscription_;
};

}  // namespace orvane
