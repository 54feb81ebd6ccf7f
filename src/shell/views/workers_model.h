#pragma once

#include "platform/text/locale_format.h"
#include "pool/account_records.h"
#include "shell/views/row_list_model.h"

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

}  // namespace orvane
