#pragma once

#include <vector>

#include "shell/views/figure_table.h"
#include "shell/views/workers_model.h"

namespace orvane {

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

}  // namespace orvane
