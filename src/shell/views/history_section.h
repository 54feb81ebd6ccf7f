#pragma once

#include <QWidget>
#include <optional>
#include "core/balance_store.h"
#include "platform/text/locale_format.h"
#include "pool/history.h"
#include "shell/views/controls.h"
#include "shell/views/frames.h"
#include "shell/views/history_commands.h"
#include "shell/views/kept_layout.h"

namespace orvane {
class BraiinsHistorySummaryRow;
class BraiinsHistoryTable;
class HistoryChartPanel;

/// "Daily history": totals and table or picture, or an invitation to load the days.
class HistorySection final : public QWidget {
 public:
  /// `store` and `format` outlive the section.
  HistorySection(BalanceStore& store, const LocaleFormat& format, AskWhereToSave askWhereToSave,
                 QWidget* parent = nullptr);
  /// Has the table's columns come back as the user left them; `layout` outlives the section.
  void keepColumns(KeptLayout& layout);
  void showHistory(const BalanceState& state);
  /// Asks where, and saves the history as CSV; what goes wrong is told in the section.
  void saveHistory() { commands_->save(); }
  /// In which no figure is cut off.
  [[nodiscard]] int leastWidth() const;
  /// In which the totals stand in one row, also those of a history that has yet to come.
  [[nodiscard]] int widthOfOneRow() const;

 private:
  void layOut();
  void showStatus(const BalanceState& state);
  void showView(const BalanceState& state, bool areNewDays);

  const LocaleFormat& format_;
  /// Adding up twenty years of decimal amounts takes long enough to be done only when they change.
  std::optional<BraiinsHistorySummary> summary_;
  bool chartIsOld_ = true;  ///< it is drawn when it is looked at
  SectionHeader* header_;
  SegmentedPicker* view_;
  RefreshButton* loadButton_;
  TextLabel* hint_;
  TextLabel* status_;
  Panel* panel_;
  RefreshButton* reloadButton_;
  BraiinsHistorySummaryRow* summaryRow_;
  BraiinsHistoryTable* table_;
  HistoryChartPanel* chart_;
  HistoryCommands* commands_;
  FailureAnnouncer announcer_;
};
}  // namespace orvane
