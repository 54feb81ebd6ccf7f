#pragma once

#include <QWidget>
#include "core/balance_store.h"
#include "platform/text/locale_format.h"
#include "shell/views/controls.h"
#include "shell/views/history_chart.h"
#include "shell/views/parted_label.h"

namespace orvane {
/// The chart of the daily history, with the choice of its span above it and the words for the day
/// with the cursor beneath.
class HistoryChartPanel final : public QWidget {
 public:
  /// `store` and `format` outlive the panel.
  HistoryChartPanel(BalanceStore& store, const LocaleFormat& format, QWidget* parent);

  /// Brings the panel up to date with the store; `areNewDays`: the history is another one.
  void showHistory(bool areNewDays);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void fitToFont();
  void showDay();

  BalanceStore& store_;
  const LocaleFormat& format_;
  std::optional<HistorySpan> shown_;
  SegmentedPicker* span_;
  HistoryChart* chart_;
  PartedLabel* day_;
};
}  // namespace orvane
