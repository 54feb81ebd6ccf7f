#pragma once

#include <QWidget>
#include <optional>
#include "core/balance_store.h"
#include "platform/text/locale_format.h"
#include "pool/history.h"
#include "shell/views/controls.h"
#include "shell/views/frames.h"

namespace orvane {
class BraiinsHistorySummaryRow;
class BraiinsHistoryTable;

/// "Daily history": totals and table, or an invitation to load the days.
class HistorySection final : public QWidget {
 public:
  /// `store` and `format` outlive the section.
  HistorySection(BalanceStore& store, const LocaleFormat& format, QWidget* parent = nullptr);
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
