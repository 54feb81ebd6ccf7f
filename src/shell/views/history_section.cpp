#include "shell/views/history_section.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include "shell/view_models/history_texts.h"
#include "shell/views/frames.h"
#include "shell/views/qt_text.h"
#include "shell/views/theme.h"

namespace orvane {

BraiinsHistorySummaryRow::BraiinsHistorySummaryRow(const LocaleFormat& format, QWidget* trailing,
                                                   QWidget* parent)
    : QWidget(parent), format_(format), metrics_(new MetricRow<SummaryMetric>(this)) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(theme::summaryHorizontalPadding, theme::summaryVerticalPadding,
                          theme::summaryHorizontalPadding, theme::summaryVerticalPadding);
  row->setSpacing(theme::barPadding);
  row->addWidget(metrics_, 1, Qt::AlignVCenter);
  row->addWidget(trailing, 0, Qt::AlignVCenter);
}

void BraiinsHistorySummaryRow::showSummary(const BraiinsHistorySummary& summary,
                                           const std::vector<Metric>& extraMetrics) {
  metrics_->showMetrics(historySummaryMetrics(summary, format_, extraMetrics));
}

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

using theme::TextColor;
using theme::TextStyle;

HistorySection::HistorySection(const LocaleFormat& format, const BalanceActions& actions,
                               QWidget* parent)
    : QWidget(parent),
      format_(format),
      header_(new SectionHeader(tr("Daily history"), this)),
      loadButton_(new RefreshButton(tr("Daily history"), actions.loadHistory, this)),
      hint_(new TextLabel(TextStyle::callout, TextColor::secondary, this)),
      status_(new TextLabel(TextStyle::caption, TextColor::secondary, this)),
      panel_(new Panel(this)),
      reloadButton_(new RefreshButton(tr("Daily history"), actions.loadHistory, panel_)),
      summaryRow_(new BraiinsHistorySummaryRow(format, reloadButton_, panel_)),
      table_(new BraiinsHistoryTable(format, panel_)) {
  hint_->setText(
      tr("Load the days Braiins keeps for this account: average hashrate, accepted shares and the "
         "confirmed reward of each day."));
  hint_->setWordWrap(true);
  status_->setWordWrap(true);
  status_->makeSelectable();
  header_->addControl(loadButton_);
  layOut();
}

void HistorySection::layOut() {
  panel_->rows()->addWidget(summaryRow_);
  panel_->rows()->addWidget(new Divider(Qt::Horizontal, panel_));
  panel_->rows()->addWidget(table_, 1);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(theme::smallSpacing);
  column->addWidget(header_);
  column->addWidget(hint_);
  column->addWidget(status_);
  column->addWidget(panel_, 1);
  column->addStretch();
}

void HistorySection::showHistory(const BalanceState& state) {
  const auto section = historySectionState(state);
  header_->showSubtitle(section.subtitle);
  loadButton_->showState({.isVisible = section.isEmpty, .isBusy = section.isLoading});
  reloadButton_->showState({.isVisible = !section.isEmpty, .isBusy = section.isLoading});
  hint_->setVisible(section.isEmpty);
  status_->showTextOrHide(section.status.value_or(std::string()));
  if (table_->showDays(state.history) || !summary_) { summary_.emplace(state.history); }
  summaryRow_->showSummary(*summary_, historyValueMetrics(*summary_, state, format_));
  panel_->setVisible(!section.isEmpty);
}

}  // namespace orvane
