#include "shell/views/workers_model.h"

#include "shell/view_models/worker_row.h"
#include "shell/views/qt_text.h"
#include "shell/views/table_roles.h"
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

}  // namespace orvane
