#include "shell/views/history_section.h"

#include <QVBoxLayout>

#include "shell/view_models/history_section.h"
#include "shell/views/frames.h"

namespace orvane {

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
