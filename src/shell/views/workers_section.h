#pragma once

#include <QWidget>
#include <vector>

#include "platform/text/locale_format.h"
#include "pool/account_records.h"
#include "shell/views/frames.h"
#include "shell/views/section_header.h"
#include "shell/views/workers_table.h"

namespace orvane {

/// "Workers": how many are well, and the table of all.
class WorkersSection final : public QWidget {
  Q_OBJECT

 public:
  explicit WorkersSection(const LocaleFormat& format, QWidget* parent = nullptr);
  void showWorkers(const std::vector<BraiinsWorkerStatus>& workers);

 private:
  SectionHeader* header_;
  TextLabel* emptyHint_;
  Panel* panel_;
  WorkersTable* table_;
};

}  // namespace orvane
