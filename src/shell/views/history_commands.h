#pragma once

#include <QObject>
#include <QString>
#include <QTableView>
#include <functional>
#include <optional>
#include "core/balance_store.h"

namespace orvane {
/// Asks the user where to save a file, over the window of `over`, and calls `use` with the path;
/// not at all when the user thinks better of it.
using AskWhereToSave = std::function<void(QWidget& over, const QString& fileName,
                                          std::function<void(const QString& path)> use)>;

/// What the user can do with the daily history: copy the row with the cursor, or all rows, and save
/// it as CSV. The commands are in the table's context menu; Control-C copies the row, or all rows
/// where there is no cursor.
class HistoryCommands final : public QObject {
  Q_OBJECT

 public:
  /// `table` has a row for each day of the store's history and owns this object. `onOutcome` runs
  /// when saving has failed or succeeded.
  HistoryCommands(const BalanceStore& store, QTableView& table, AskWhereToSave askWhereToSave,
                  std::function<void()> onOutcome);

  /// Asks where, and writes the history that there is then. A file is replaced by the whole of it
  /// or not at all.
  void save();

  /// What went wrong the last time; nothing while all is well.
  [[nodiscard]] const std::optional<std::string>& failure() const { return failure_; }

 private:
  void addCommand(const QString& title, void (HistoryCommands::*command)());
  void copyRow();
  void copyAll();
  void write(const QString& path);

  const BalanceStore& store_;
  QTableView& table_;
  AskWhereToSave askWhereToSave_;
  std::function<void()> onOutcome_;
  std::optional<std::string> failure_;
};
}  // namespace orvane
