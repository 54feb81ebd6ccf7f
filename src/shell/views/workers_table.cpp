#include "shell/views/workers_table.h"

#include <QHeaderView>

#include "shell/views/theme.h"

namespace orvane {

WorkersTable::WorkersTable(const LocaleFormat& format, QWidget* parent)
    : FigureTable(parent), model_(new WorkersModel(format, this)) {
  setModel(model_);
  setAccessibleName(tr("Workers"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  auto& header = *horizontalHeader();
  header.setSectionResizeMode(QHeaderView::Fixed);
  header.setSectionResizeMode(WorkersModel::worker, QHeaderView::Stretch);
  header.resizeSection(WorkersModel::state, theme::stateColumnWidth + 2 * theme::tableCellPadding);
  for (int column = WorkersModel::rate5m; column < WorkersModel::columnTotal; ++column) {
    header.resizeSection(column, theme::rateColumnWidth);
  }
}

void WorkersTable::showWorkers(const std::vector<BraiinsWorkerStatus>& workers) {
  const int before = model_->rowCount();
  model_->setRecords(workers);
  if (model_->rowCount() != before) { updateGeometry(); }
}

QSize WorkersTable::sizeHint() const {
  const int rows = std::min(model_->rowCount(), theme::workersRowsInSight);
  const int height = horizontalHeader()->sizeHint().height() + rows * theme::tableRowHeight;
  return {theme::rightColumnMinimumWidth - 2 * theme::windowPadding - 2, height};
}

}  // namespace orvane
