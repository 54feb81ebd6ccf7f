#pragma once

#include <QWidget>
#include <vector>

#include "platform/text/locale_format.h"
#include "pool/account.h"
#include "shell/views/figure_table.h"
#include "shell/views/frames.h"

namespace orvane {

/// The workers, in the store's order.
class WorkersModel final : public RowListModel<BraiinsWorkerStatus> {
  Q_OBJECT

 public:
  enum Column { worker, state, rate5m, rate60m, rate24h, columnTotal };

  explicit WorkersModel(const LocaleFormat& format, QObject* parent = nullptr)
      : RowListModel(parent), format_(format) {}

  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  const LocaleFormat& format_;
};

/// The workers of the pool account, a row each. As high as its rows; a long list scrolls within.
class WorkersTable final : public FigureTable {
  Q_OBJECT

 public:
  explicit WorkersTable(const LocaleFormat& format, QWidget* parent = nullptr);

  void showWorkers(const std::vector<BraiinsWorkerStatus>& workers);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 private:
  WorkersModel* model_;
};

/// "Workers": how many are well, and the table of all.
class WorkersSection final : public QWidget {
  Q_OBJECT

 public:
  explicit WorkersSection(const LocaleFormat& format, QWidget* parent = nullptr);
  void showWorkers(const std::vector<BraiinsWorkerStatus>& workers);

 private:
  SectionHeader* header_;
  TextLabel* emptyHint_;
  Panel* panel_;
  WorkersTable* table_;
};

}  // namespace orvane
