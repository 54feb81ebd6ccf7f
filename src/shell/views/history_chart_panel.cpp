#include "shell/views/history_chart_panel.h"
#include <QEvent>
#include <QVBoxLayout>
#include "shell/views/history_picture.h"
#include "shell/views/qt_text.h"

namespace orvane {
HistoryChartPanel::HistoryChartPanel(BalanceStore& store, const LocaleFormat& format,
                                     QWidget* parent)
    : QWidget(parent), store_(store), format_(format) {
  span_ = new SegmentedPicker(
      tr("Days in the chart"), {}, {tr("30 days"), tr("90 days"), tr("1 year"), tr("All")},
      [&store](std::size_t index) { store.setHistorySpan(static_cast<HistorySpan>(index)); }, this);
  chart_ = new HistoryChart(format, this);
  fitToFont();
  chart_->dayText = [this](std::size_t row) {
    const auto& state = store_.state();
    return row < state.history.size()
               ? toQString(historyDayText(state.history[row], state, format_))
               : QString();
  };
  chart_->onMove = [this] { showDay(); };
  day_ = new PartedLabel(theme::TextStyle::calloutFigure, theme::TextColor::primary, this);
  day_->makeSelectable();
  // The words in the picture stand where everything in the panel begins and ends.
  constexpr int gap = HistoryPicture::gap;
  day_->setContentsMargins(gap, 0, gap, 0);
  auto* const choice = new QVBoxLayout;
  choice->setContentsMargins(gap, 0, gap, 0);
  choice->addWidget(span_, 0, Qt::AlignTrailing);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(theme::panelPadding - gap, theme::smallSpacing,
                             theme::panelPadding - gap, theme::smallSpacing);
  column->setSpacing(theme::smallSpacing);
  column->addLayout(choice);
  column->addWidget(chart_, 1);
  column->addWidget(day_);
}

void HistoryChartPanel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ApplicationFontChange) { fitToFont(); }
}

void HistoryChartPanel::fitToFont() {
  chart_->setMinimumHeight(theme::grown(theme::historyTableMinimumHeight));
}

void HistoryChartPanel::showHistory(bool areNewDays) {
  const auto& state = store_.state();
  span_->showChoice(static_cast<std::size_t>(state.historySpan));
  if (areNewDays || shown_ != state.historySpan) {
    shown_ = state.historySpan;
    chart_->showSeries(historySeries(state.history, state.historySpan));
  }
  showDay();
}

void HistoryChartPanel::showDay() {
  const auto* const day = chart_->currentDay();
  day_->showText(day ? toUtf8(chart_->dayText(day->row)) : std::string());
}
}  // namespace orvane
