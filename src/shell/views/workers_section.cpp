#include "shell/views/workers_section.h"

#include <QHeaderView>
#include <QVBoxLayout>

#include "shell/view_models/worker_rows.h"
#include "shell/views/figure_table.h"
#include "shell/views/qt_text.h"
#include "shell/views/theme.h"

namespace orvane {

namespace {

constexpr std::array<const char*, WorkersModel::columnTotal> titles{"Worker", "State", "5 min",
                                                                    "60 min", "24 h"};

theme::MarkColor dotColor(BraiinsWorkerStatus::State state) {
  using enum BraiinsWorkerStatus::State;
  switch (state) {
    case ok:
      return theme::MarkColor::green;
    case low:
      return theme::MarkColor::orange;
    case off:
      return theme::MarkColor::red;
    case disabled:
    case unknown:
      return theme::MarkColor::gray;
  }
  return theme::MarkColor::gray;
}

const std::string& cellText(const WorkerRow& row, int column) {
  switch (column) {
    case WorkersModel::state:
      return row.stateWord;
    case WorkersModel::rate5m:
      return row.rate5m;
    case WorkersModel::rate60m:
      return row.rate60m;
    case WorkersModel::rate24h:
      return row.rate24h;
    default:
      return row.name;
  }
}

QVariant toolTip(const WorkerRow& row, int column) {
  if (column == WorkersModel::worker) { return plainToolTip(row.nameToolTip); }
  if (column == WorkersModel::state) { return plainToolTip(row.stateToolTip); }
  return {};
}

int alignment(int column) {
  return static_cast<int>(Qt::AlignVCenter |
                          (column >= WorkersModel::rate5m ? Qt::AlignRight : Qt::AlignLeft));
}

}  // namespace

int WorkersModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columnTotal;
}

QVariant WorkersModel::data(const QModelIndex& index, int role) const {
  switch (role) {
    case Qt::DisplayRole:
      return toQString(cellText(workerRow(record(index), format_), index.column()));
    case Qt::ToolTipRole:
      return toolTip(workerRow(record(index), format_), index.column());
    case Qt::TextAlignmentRole:
      return alignment(index.column());
    case dotColorRole:
      if (index.column() != state) { return {}; }
      return static_cast<int>(dotColor(record(index).state));
    default:
      return {};
  }
}

QVariant WorkersModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnTotal) { return {}; }
  if (role == Qt::DisplayRole) { return toQString(titles.at(static_cast<std::size_t>(section))); }
  return role == Qt::TextAlignmentRole ? QVariant(alignment(section)) : QVariant();
}

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

WorkersSection::WorkersSection(const LocaleFormat& format, QWidget* parent)
    : QWidget(parent),
      header_(new SectionHeader(tr("Workers"), this)),
      emptyHint_(new TextLabel(theme::TextStyle::callout, theme::TextColor::secondary, this)),
      panel_(new Panel(this)),
      table_(new WorkersTable(format, panel_)) {
  emptyHint_->setText(tr("Braiins lists no worker for this account."));
  emptyHint_->setWordWrap(true);
  panel_->rows()->addWidget(table_);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(theme::smallSpacing);
  column->addWidget(header_);
  column->addWidget(emptyHint_);
  column->addWidget(panel_);
}

void WorkersSection::showWorkers(const std::vector<BraiinsWorkerStatus>& workers) {
  header_->showSubtitle(workersSubtitle(workers));
  table_->showWorkers(workers);
  emptyHint_->setVisible(workers.empty());
  panel_->setVisible(!workers.empty());
}

}  // namespace orvane
