#include "shell/views/history_table.h"

#include <QHeaderView>

#include "shell/view_models/history_texts.h"
#include "shell/views/qt_text.h"
#include "shell/views/theme.h"

namespace orvane {
namespace {

constexpr int columnTotal = static_cast<int>(historyColumnTitles.size());

const std::string& cellText(const HistoryRow& row, int column) {
  switch (column) {
    case 1:
      return row.averageHashRate;
    case 2:
      return row.shares;
    case 3:
      return row.reward;
    default:
      return row.date;
  }
}

int alignment(int column) {
  return static_cast<int>(Qt::AlignVCenter | (column > 0 ? Qt::AlignRight : Qt::AlignLeft));
}

}  // namespace

int HistoryModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columnTotal;
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const {
  switch (role) {
    case Qt::DisplayRole:
      return toQString(cellText(historyRow(record(index), format_), index.column()));
    case Qt::TextAlignmentRole:
      return alignment(index.column());
    default:
      return {};
  }
}

QVariant HistoryModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnTotal) { return {}; }
  if (role == Qt::DisplayRole) {
    return toQString(historyColumnTitles.at(static_cast<std::size_t>(section)));
  }
  return role == Qt::TextAlignmentRole ? QVariant(alignment(section)) : QVariant();
}

BraiinsHistoryTable::BraiinsHistoryTable(const LocaleFormat& format, QWidget* parent)
    : FigureTable(parent), model_(new HistoryModel(format, this)) {
  setModel(model_);
  setMinimumHeight(theme::historyTableMinimumHeight);
  setAccessibleName(tr("Daily history"));
  horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  horizontalHeader()->setStretchLastSection(true);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int section) {
    const bool isStretched = section + 1 == columnTotal;
    if (!isSharing_ && !isStretched && isVisible()) { sharesWidth_ = false; }
  });
}

void BraiinsHistoryTable::resizeEvent(QResizeEvent* event) {
  if (sharesWidth_) { shareWidth(); }
  FigureTable::resizeEvent(event);
}

void BraiinsHistoryTable::shareWidth() {
  isSharing_ = true;
  for (int column = 0; column + 1 < columnTotal; ++column) {
    horizontalHeader()->resizeSection(column, viewport()->width() / columnTotal);
  }
  isSharing_ = false;
}

}  // namespace orvane
