#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "core/balance_state.h"
#include "platform/text/locale_format.h"
#include "pool/history.h"
#include "shell/view_models/card_contents.h"
#include "shell/views/balance_actions.h"
#include "shell/views/buttons.h"
#include "shell/views/card_parts.h"
#include "shell/views/figure_table.h"
#include "shell/views/frames.h"

namespace orvane {

/// A band of totals over the daily history, with room for further figures and for a control of
/// the caller's at its end.
class BraiinsHistorySummaryRow final : public QWidget {
  Q_OBJECT

 public:
  /// `trailing`: stands at the end of the row; the row owns it.
  BraiinsHistorySummaryRow(const LocaleFormat& format, QWidget* trailing,
                           QWidget* parent = nullptr);

  void showSummary(const BraiinsHistorySummary& summary, const std::vector<Metric>& extraMetrics);

 private:
  const LocaleFormat& format_;
  MetricRow<SummaryMetric>* metrics_;
};

/// The days, in the order given.
class HistoryModel final : public RowListModel<BraiinsHistoryDay> {
  Q_OBJECT

 public:
  explicit HistoryModel(const LocaleFormat& format, QObject* parent = nullptr)
      : RowListModel(parent), format_(format) {}

  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  const LocaleFormat& format_;
};

/// The pool's daily history, a row a day. Its columns share the width until the user moves one.
class BraiinsHistoryTable final : public FigureTable {
  Q_OBJECT

 public:
  explicit BraiinsHistoryTable(const LocaleFormat& format, QWidget* parent = nullptr);

  /// Returns whether the days differ from those shown before.
  bool showDays(const std::vector<BraiinsHistoryDay>& days) { return model_->setRecords(days); }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void shareWidth();

  HistoryModel* model_;
  bool sharesWidth_ = true;
  bool isSharing_ = false;
};

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
