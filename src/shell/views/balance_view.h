#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include "core/balance_store.h"
#include "platform/async/signal.h"
#include "platform/desktop/desktop_application.h"
#include "platform/text/locale_format.h"
#include "shell/views/coalesced_update.h"
#include "shell/views/frames.h"
#include "shell/views/history_commands.h"
#include "shell/views/kept_layout.h"

namespace orvane {
class AddressCardView;
class HistorySection;
class PoolCardView;
class SettingsSection;
class WorkersSection;

/// What the view is told once, when it is made.
struct BalanceViewSettings {
  std::string poolWebHost;  ///< host of the pool's web site, for the account link
  /// The commands of the application, as they can be given now: the same ones each time, some of
  /// them perhaps disabled. They stand in a menu beside the Close button; none: no such button.
  std::function<Menu()> commands = [] { return Menu(); };
  AskWhereToSave askWhereToSave = {};  ///< none: the history cannot be saved
  KeptLayout* layout = nullptr;        ///< outlives the view; none: widths of columns are not kept
};

class CloseBar;

/// The content of the main window, in two columns or, where the screen has no room for both, in
/// one: shows the store's figures and redraws, once per turn of the event loop, when the store
/// announces a change. Asks its window for the least size that the parts on show need, as far as
/// the screen has it.
class BalanceView final : public QWidget {
 public:
  /// `store` and `format` outlive the view. `onClose` runs for the Close button and for Escape.
  BalanceView(BalanceStore& store, const LocaleFormat& format, const BalanceViewSettings& settings,
              const std::function<void()>& onClose, QWidget* parent = nullptr);

  /// Asks where, and saves the daily history as CSV.
  void saveHistory();

  /// The least size, and as wide as everything needs that may wrap in it but looks better in a row.
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void layOut();
  void placeColumns();
  void moveAccountTo(ColumnArea& area);
  /// Brings every part up to date with the store; only what differs is touched, so that focus,
  /// typed text, selections and scroll positions stay.
  void showState();
  void askForSize();
  [[nodiscard]] QSize leastSize() const;
  /// In which no figure of the account's tables is cut off.
  [[nodiscard]] int accountWidth() const;
  /// Of the window whose right column's content is as wide as this.
  [[nodiscard]] int widthAround(int content) const;

  BalanceStore& store_;
  const LocaleFormat& format_;
  ColumnArea* leftColumn_;
  ColumnArea* rightColumn_;
  QWidget* columnDivider_;
  PoolCardView* poolCard_;
  AddressCardView* addressCard_;
  SettingsSection* settings_;
  QWidget* account_;  ///< what the right column shows, where there is room for one
  WorkersSection* workers_;
  HistorySection* history_;
  std::function<Menu()> commands_;
  CloseBar* closeBar_;
  CoalescedUpdate update_;
  Registration subscription_;
};
}  // namespace orvane
