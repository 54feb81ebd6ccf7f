#pragma once

#include <vector>

#include "platform/text/locale_format.h"
#include "pool/history_day.h"
#include "shell/views/figure_table.h"
#include "shell/views/row_list_model.h"

namespace orvane {

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

}  // namespace orvane
