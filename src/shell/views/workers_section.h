#pragma once

#include <QWidget>
#include <vector>
#include "platform/text/locale_format.h"
#include "pool/account.h"
#include "shell/views/frames.h"

namespace orvane {
/// "Workers": how many are well, and the table of all, in the store's order.
class WorkersSection final : public QWidget {
 public:
  /// `format` outlives the section.
  explicit WorkersSection(const LocaleFormat& format, QWidget* parent = nullptr);
  void showWorkers(const std::vector<BraiinsWorkerStatus>& workers);
  /// In which no figure is cut off.
  [[nodiscard]] int leastWidth() const;

 private:
  class Table;

  SectionHeader* header_;
  TextLabel* emptyHint_;
  Panel* panel_;
  Table* table_;
};
}  // namespace orvane
