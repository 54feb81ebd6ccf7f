#include "shell/views/history_section.h"
#include <QHBoxLayout>
#include <QHeaderView>
#include <array>
#include <numeric>
#include <utility>
#include "shell/view_models/account_tables.h"
#include "shell/views/figure_table.h"
#include "shell/views/history_chart_panel.h"
#include "shell/views/labels.h"

namespace orvane {
using theme::TextColor;
using theme::TextStyle;

namespace {
enum Column { date, averageHashRate, shares, reward, columnTotal };

constexpr std::array<TableColumn, columnTotal> columns{{{.title = "DATE", .side = Qt::AlignLeft},
                                                        {.title = "AVG HASHRATE"},
                                                        {.title = "ACCEPTED SHARES"},
                                                        {.title = "CONFIRMED REWARD"}}};

class HistoryModel final : public RecordTableModel<BraiinsHistoryDay> {
 public:
  HistoryModel(const LocaleFormat& format, QObject* parent)
      : RecordTableModel(columns, parent), format_(format) {}

 protected:
  [[nodiscard]] std::string text(const BraiinsHistoryDay& day, int column) const override {
    switch (column) {
      case date:
        return historyDateText(day, format_);
      case averageHashRate:
        return historyHashRateText(day);
      case shares:
        return historySharesText(day, format_);
      default:
        return historyRewardText(day, format_);
    }
  }

 private:
  const LocaleFormat& format_;
};

MetricBlock* summaryMetric(QWidget* parent) {
  return new MetricBlock(TextStyle::captionBold, TextStyle::bodyBoldFigure, parent);
}
}  // namespace

/// A band of totals over the daily history, with room for further figures and for a control of
/// the caller's at its end.
class BraiinsHistorySummaryRow final : public QWidget {
 public:
  /// `trailing`: stands at the end of the row; the row owns it.
  BraiinsHistorySummaryRow(const LocaleFormat& format, QWidget* trailing, QWidget* parent)
      : QWidget(parent),
        format_(format),
        metrics_(new MetricRow(&summaryMetric, this)),
        trailing_(trailing) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(theme::panelPadding, theme::summaryVerticalPadding, theme::panelPadding,
                            theme::summaryVerticalPadding);
    row->setSpacing(theme::barPadding);
    row->addWidget(metrics_, 1, Qt::AlignVCenter);
    row->addWidget(trailing, 0, Qt::AlignVCenter);
  }

  void showSummary(const BraiinsHistorySummary& summary, const std::vector<Metric>& extraMetrics) {
    metrics_->showMetrics(historySummaryMetrics(summary, format_, extraMetrics));
  }

  /// In which these and all usual totals stand in one row.
  [[nodiscard]] int widthOfOneRow() const {
    const int metrics =
        std::max(metrics_->sizeHint().width(), metrics_->widthOf(usualHistoryMetrics(format_)));
    return 2 * theme::panelPadding + metrics + theme::barPadding + trailing_->sizeHint().width();
  }

 private:
  const LocaleFormat& format_;
  MetricRow* metrics_;
  QWidget* trailing_;
};

/// A row a day, in the order given. Its columns share the width until the user moves one, and then
/// keep theirs as far as there is room for every figure.
class BraiinsHistoryTable final : public FigureTable {
 public:
  BraiinsHistoryTable(const LocaleFormat& format, QWidget* parent)
      : FigureTable(parent), model_(new HistoryModel(format, this)) {
    setModel(model_);
    setAccessibleName(tr("Daily history"));
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    horizontalHeader()->setStretchLastSection(true);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int section, int /*before*/, int width) { handleResize(section, width); });
  }

  void keepColumns(KeptLayout& layout) {
    layout_ = &layout;
    const auto widths = layout.historyColumns();
    if (std::cmp_equal(widths.size(), columnsBeforeLast)) { chosenWidths_ = widths; }
    arrange();
  }

  /// Returns whether the days differ from those shown before.
  bool showDays(const std::vector<BraiinsHistoryDay>& days) {
    const bool isNew = model_->setRecords(days);
    if (isNew) { fitColumns(); }
    return isNew;
  }

  /// In which no figure is cut off.
  [[nodiscard]] int leastWidth() const {
    const auto needed = neededWidths(true);
    return std::reduce(needed.begin(), needed.end());
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    arrange();
    FigureTable::resizeEvent(event);
  }

  void hideEvent(QHideEvent* event) override {
    if (layout_ && !chosenWidths_.empty()) { layout_->setHistoryColumns(chosenWidths_); }
    FigureTable::hideEvent(event);
  }

  void fitColumns() override {
    setMinimumHeight(theme::historyTableMinimumHeight / theme::tableRowHeight * rowHeight());
    for (std::size_t column = 0; column < columns.size(); ++column) {
      cellWidths_[column] = widestCell(static_cast<int>(column));
    }
    arrange();
  }

 private:
  using Widths = std::array<int, columns.size()>;
  static constexpr int columnsBeforeLast = static_cast<int>(columns.size()) - 1;

  [[nodiscard]] Widths neededWidths(bool wrapsTitles) const {
    Widths needed = cellWidths_;
    for (std::size_t column = 0; column < columns.size(); ++column) {
      const int title = titleWidth(static_cast<int>(column), wrapsTitles);
      needed[column] = std::max(needed[column], title);
    }
    return needed;
  }

  /// Titles stand in one line each where there is room for that.
  [[nodiscard]] bool hasToWrap() const {
    const auto needed = neededWidths(false);
    return std::reduce(needed.begin(), needed.end()) > viewport()->width();
  }

  /// The user has moved the edge of a column, which gives to the last one or takes from it.
  void handleResize(int section, int width) {
    if (isArranging_ || section == columnsBeforeLast || !isVisible()) { return; }
    const auto needed = neededWidths(hasToWrap());
    const int least = needed.at(static_cast<std::size_t>(section));
    int most = viewport()->width() - needed.back();
    for (int column = 0; column < columnsBeforeLast; ++column) {
      if (column != section) { most -= columnWidth(column); }
    }
    isArranging_ = true;
    horizontalHeader()->resizeSection(section, std::max(std::min(width, most), least));
    isArranging_ = false;
    chosenWidths_.clear();
    for (int column = 0; column < columnsBeforeLast; ++column) {
      chosenWidths_.push_back(columnWidth(column));
    }
  }

  void arrange() {
    isArranging_ = true;
    const bool wraps = hasToWrap();
    wrapTitles(wraps);
    if (chosenWidths_.empty()) {
      shareWidth(neededWidths(wraps));
    } else {
      showChosenWidths(neededWidths(wraps));
    }
    isArranging_ = false;
  }

  /// What is too much is taken from the first columns, down to what they need.
  void showChosenWidths(const Widths& needed) {
    int excess = needed.back() - viewport()->width();
    std::vector<int> widths;
    for (std::size_t column = 0; column < chosenWidths_.size(); ++column) {
      widths.push_back(std::max(chosenWidths_[column], needed[column]));
      excess += widths.back();
    }
    for (std::size_t column = 0; column < widths.size(); ++column) {
      const int given = std::clamp(excess, 0, widths[column] - needed[column]);
      excess -= given;
      horizontalHeader()->resizeSection(static_cast<int>(column), widths[column] - given);
    }
  }

  /// Equal widths, but for a column that needs more than its share.
  void shareWidth(const Widths& needed) {
    int width = viewport()->width();
    auto sharers = static_cast<int>(columns.size());
    std::array<bool, columns.size()> isWide{};
    const auto needsMore = [&](std::size_t column) {
      return !isWide[column] && needed[column] > width / sharers;
    };
    for (std::size_t column = 0; column < columns.size() && sharers > 1;) {
      if (!needsMore(column)) {
        ++column;
        continue;
      }
      isWide[column] = true;
      width -= needed[column];
      --sharers;
      column = 0;  // the others' share has become smaller
    }
    for (std::size_t column = 0; column + 1 < columns.size(); ++column) {
      const int share = isWide[column] ? needed[column] : width / sharers;
      horizontalHeader()->resizeSection(static_cast<int>(column), share);
    }
  }

  HistoryModel* model_;
  Widths cellWidths_{};
  std::vector<int> chosenWidths_;  ///< by the user, but for the last column; empty: none
  KeptLayout* layout_ = nullptr;
  bool isArranging_ = false;
};

HistorySection::HistorySection(BalanceStore& store, const LocaleFormat& format,
                               AskWhereToSave askWhereToSave, QWidget* parent)
    : QWidget(parent),
      format_(format),
      header_(new SectionHeader(tr("Daily history"), this)),
      hint_(wrappingText(tr("Load the days Braiins keeps for this account: average hashrate, "
                            "accepted shares and the confirmed reward of each day."),
                         TextStyle::callout, TextColor::secondary, this)),
      panel_(new Panel(this)) {
  // The Tab key goes from part to part in the order in which they are made.
  view_ = new SegmentedPicker(
      tr("Show the daily history as"), {}, {tr("Table"), tr("Chart")},
      [&store](std::size_t index) { store.setHistoryView(static_cast<HistoryView>(index)); }, this);
  const auto load = [&store] { store.loadHistory(); };
  loadButton_ = new RefreshButton(tr("Daily history"), load, this);
  status_ = wrappingText({}, TextStyle::caption, TextColor::secondary, this);
  status_->makeSelectable();
  reloadButton_ = new RefreshButton(tr("Daily history"), load, panel_);
  summaryRow_ = new BraiinsHistorySummaryRow(format, reloadButton_, panel_);
  table_ = new BraiinsHistoryTable(format, panel_);
  chart_ = new HistoryChartPanel(store, format, panel_);
  commands_ = new HistoryCommands(store, *table_, std::move(askWhereToSave), [this, &store] {
    showStatus(store.state());
    if (commands_->failure()) { announce(*status_, *commands_->failure()); }
  });
  header_->addControl(view_);
  header_->addControl(loadButton_);
  layOut();
}

void HistorySection::layOut() {
  panel_->rows()->addWidget(summaryRow_);
  panel_->rows()->addWidget(new Divider(Qt::Horizontal, panel_));
  panel_->rows()->addWidget(table_, 1);
  panel_->rows()->addWidget(chart_, 1);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(theme::smallSpacing);
  column->addWidget(header_);
  column->addWidget(hint_);
  column->addWidget(status_);
  column->addWidget(panel_, 1);
  column->addStretch();
}

int HistorySection::leastWidth() const { return table_->leastWidth() + 2; }
int HistorySection::widthOfOneRow() const { return summaryRow_->widthOfOneRow() + 2; }

void HistorySection::keepColumns(KeptLayout& layout) { table_->keepColumns(layout); }

void HistorySection::showView(const BalanceState& state, bool areNewDays) {
  const bool isChart = state.historyView == HistoryView::chart;
  chartIsOld_ = chartIsOld_ || areNewDays;
  if (isChart) { chart_->showHistory(std::exchange(chartIsOld_, false)); }
  view_->showChoice(static_cast<std::size_t>(state.historyView));
  view_->setVisible(!state.history.empty());
  table_->setVisible(!isChart);
  chart_->setVisible(isChart);
}

void HistorySection::showStatus(const BalanceState& state) {
  status_->showTextOrHide(
      commands_->failure().value_or(state.historyStatus.value_or(std::string())));
}

void HistorySection::showHistory(const BalanceState& state) {
  const bool isEmpty = state.history.empty();
  const bool handsFocusOn = loadButton_->hasFocus() && !isEmpty;
  header_->showSubtitle(historySubtitle(state.history));
  loadButton_->showState({.isVisible = isEmpty, .isBusy = state.isLoadingHistory});
  reloadButton_->showState({.isVisible = !isEmpty, .isBusy = state.isLoadingHistory});
  hint_->setVisible(isEmpty);
  showStatus(state);
  if (!state.isLoadingHistory) {
    announcer_.notice(*status_, state.historyStatus.value_or(std::string()),
                      state.hasHistoryFailed && state.historyStatus);
  }
  const bool areNewDays = table_->showDays(state.history);
  if (areNewDays || !summary_) { summary_.emplace(state.history); }
  summaryRow_->showSummary(*summary_, historyValueMetrics(*summary_, state, format_));
  showView(state, areNewDays);
  panel_->setVisible(!isEmpty);
  if (handsFocusOn) { reloadButton_->setFocus(Qt::OtherFocusReason); }
}
}  // namespace orvane
