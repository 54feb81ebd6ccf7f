#include "shell/views/workers_section.h"
#include <QHeaderView>
#include <algorithm>
#include <array>
#include "core/display_texts.h"
#include "shell/view_models/account_tables.h"
#include "shell/views/figure_table.h"

namespace orvane {
namespace {
enum Column { worker, state, rate5m, rate60m, rate24h, columnTotal };

constexpr std::array<TableColumn, columnTotal> columns{{{.title = "Worker", .side = Qt::AlignLeft},
                                                        {.title = "State", .side = Qt::AlignLeft},
                                                        {.title = "5 min"},
                                                        {.title = "60 min"},
                                                        {.title = "24 h"}}};

constexpr int leastNameWidth = 100;

/// The rates with the longest texts, one for each unit.
constexpr std::array widestRates{1e14, 999.999e9, 999.999e6, 999.999e3};

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

class WorkersModel final : public RecordTableModel<BraiinsWorkerStatus> {
 public:
  WorkersModel(const LocaleFormat& format, QObject* parent)
      : RecordTableModel(columns, parent), format_(format) {}

 protected:
  [[nodiscard]] std::string text(const BraiinsWorkerStatus& record, int column) const override {
    switch (column) {
      case worker:
        return workerName(record);
      case state:
        return stateWord(record.state);
      case rate5m:
        return hashRateText(record.hashRate5m);
      case rate60m:
        return hashRateText(record.hashRate60m);
      default:
        return hashRateText(record.hashRate24h);
    }
  }
  [[nodiscard]] QVariant detail(const BraiinsWorkerStatus& record, int column,
                                int role) const override {
    if (role == dotColorRole && column == state) {
      return static_cast<int>(dotColor(record.state));
    }
    if (role != Qt::ToolTipRole) { return {}; }
    if (column == worker) { return plainToolTip(workerFullName(record)); }
    return column == state ? plainToolTip(lastShareText(format_, record.lastShare)) : QVariant();
  }

 private:
  const LocaleFormat& format_;
};
}  // namespace

/// As high as its rows; a very long list scrolls within.
class WorkersSection::Table final : public FigureTable {
 public:
  Table(const LocaleFormat& format, QWidget* parent)
      : FigureTable(parent), model_(new WorkersModel(format, this)) {
    setModel(model_);
    setAccessibleName(tr("Workers"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto& header = *horizontalHeader();
    header.setSectionResizeMode(QHeaderView::Fixed);
    header.setSectionResizeMode(Column::worker, QHeaderView::Stretch);
    fitColumns();
    addCopyCommands();
  }

  void showWorkers(const std::vector<BraiinsWorkerStatus>& workers) {
    const int before = model_->rowCount();
    model_->setRecords(workers);
    if (model_->rowCount() != before) { updateGeometry(); }
  }

  [[nodiscard]] QSize sizeHint() const override {
    const int rows = model_->rowCount();
    const double inSight = rows > theme::workersShownWhole ? theme::workersRowsInSight : rows;
    const int height = static_cast<int>(inSight * rowHeight());
    return {leastWidth(), horizontalHeader()->sizeHint().height() + height};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  /// In which all figures show, and enough of the names.
  [[nodiscard]] int leastWidth() const {
    int width = std::max(titleWidth(Column::worker), theme::grown(leastNameWidth));
    for (int column = Column::state; column < columnTotal; ++column) {
      width += columnWidth(column);
    }
    return width;
  }

 protected:
  void fitColumns() override {
    auto& header = *horizontalHeader();
    int stateWidth =
        std::max(theme::stateColumnWidth + 2 * theme::tableCellPadding, titleWidth(Column::state));
    for (const char* const word : stateWords) {
      stateWidth = std::max(stateWidth, cellWidth(Column::state, word, true));
    }
    header.resizeSection(Column::state, stateWidth);
    for (const auto column : {Column::rate5m, Column::rate60m, Column::rate24h}) {
      // The last one has the panel's padding beside it, and its figures are as far apart as others.
      const int padding = cellWidth(column, {}) - cellWidth(Column::rate5m, {});
      int width = std::max(theme::rateColumnWidth + padding, titleWidth(column));
      for (const double rate : widestRates) {
        width = std::max(width, cellWidth(column, hashRateText(rate)));
      }
      header.resizeSection(column, width);
    }
  }

 private:
  WorkersModel* model_;
};

WorkersSection::WorkersSection(const LocaleFormat& format, QWidget* parent)
    : QWidget(parent),
      header_(new SectionHeader(tr("Workers"), this)),
      emptyHint_(wrappingText(tr("Braiins lists no worker for this account."),
                              theme::TextStyle::callout, theme::TextColor::secondary, this)),
      panel_(new Panel(this)),
      table_(new Table(format, panel_)) {
  panel_->rows()->addWidget(table_);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(theme::smallSpacing);
  column->addWidget(header_);
  column->addWidget(emptyHint_);
  column->addWidget(panel_);
}

int WorkersSection::leastWidth() const { return table_->leastWidth() + 2; }

void WorkersSection::showWorkers(const std::vector<BraiinsWorkerStatus>& workers) {
  header_->showSubtitle(workersSubtitle(workers));
  table_->showWorkers(workers);
  emptyHint_->setVisible(workers.empty());
  panel_->setVisible(!workers.empty());
}
}  // namespace orvane
