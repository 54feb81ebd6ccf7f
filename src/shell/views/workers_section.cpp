#include "shell/views/workers_section.h"

#include <QVBoxLayout>

#include "shell/view_models/worker_row.h"

namespace orvane {

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
