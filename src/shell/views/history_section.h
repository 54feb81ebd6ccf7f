#pragma once

#include <QWidget>
#include <optional>

#include "core/balance_state.h"
#include "platform/text/locale_format.h"
#include "shell/views/balance_actions.h"
#include "shell/views/frames.h"
#include "shell/views/history_summary_row.h"
#include "shell/views/history_table.h"
#include "shell/views/refresh_button.h"
#include "shell/views/section_header.h"

namespace orvane {

/// "Daily history": totals and table, or an invitation to load the days.
class HistorySection final : public QWidget {
  Q_OBJECT

 public:
  HistorySection(const LocaleFormat& format, const BalanceActions& actions,
                 QWidget* parent = nullptr);
  void showHistory(const BalanceState& state);

 private:
  void layOut();

  const LocaleFormat& format_;
  /// Adding up twenty years of decimal amounts takes long enough to be done only when they change.
  std::optional<BraiinsHistorySummary> summary_;
  SectionHeader* header_;
  RefreshButton* loadButton_;
  TextLabel* hint_;
  TextLabel* status_;
  Panel* panel_;
  RefreshButton* reloadButton_;
  BraiinsHistorySummaryRow* summaryRow_;
  BraiinsHistoryTable* table_;
};

}  // namespace orvane
