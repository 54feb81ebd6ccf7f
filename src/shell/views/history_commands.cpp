#include "shell/views/history_commands.h"
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QSaveFile>
#include <utility>
#include <fmt/format.h>
#include "pool/history_export.h"
#include "shell/views/qt_text.h"

namespace orvane {
namespace {
void copy(std::span<const BraiinsHistoryDay> days) {
  QGuiApplication::clipboard()->setText(toQString(historyTabSeparated(days)));
}
}  // namespace

HistoryCommands::HistoryCommands(const BalanceStore& store, QTableView& table,
                                 AskWhereToSave askWhereToSave, std::function<void()> onOutcome)
    : QObject(&table),
      store_(store),
      table_(table),
      askWhereToSave_(std::move(askWhereToSave)),
      onOutcome_(std::move(onOutcome)) {
  table.setContextMenuPolicy(Qt::ActionsContextMenu);
  addCommand(tr("Copy Row"), &HistoryCommands::copyRow);
  table.actions().constLast()->setShortcut(QKeySequence::Copy);
  table.actions().constLast()->setShortcutContext(Qt::WidgetShortcut);
  addCommand(tr("Copy All Rows"), &HistoryCommands::copyAll);
  auto* const separator = new QAction(this);
  separator->setSeparator(true);
  table.addAction(separator);
  addCommand(tr("Save History as CSV…"), &HistoryCommands::save);
}

void HistoryCommands::addCommand(const QString& title, void (HistoryCommands::*command)()) {
  auto* const action = new QAction(title, this);
  connect(action, &QAction::triggered, this, command);
  table_.addAction(action);
}

void HistoryCommands::copyRow() {
  const std::span days = store_.state().history;
  const auto row = table_.currentIndex().row();
  const bool hasCursor = row >= 0 && std::cmp_less(row, days.size());
  copy(hasCursor ? days.subspan(static_cast<std::size_t>(row), 1) : days);
}

void HistoryCommands::copyAll() { copy(store_.state().history); }

void HistoryCommands::save() {
  if (!askWhereToSave_) { return; }
  askWhereToSave_(table_, QStringLiteral("orvane-history.csv"),
                  [self = QPointer(this)](const QString& path) {
                    if (self) { self->write(path); }
                  });
}

void HistoryCommands::write(const QString& path) {
  const std::string text = historyCsv(store_.state().history);
  // Written beside the place and moved there when it is whole.
  QSaveFile file(path);
  const bool isWritten = file.open(QIODevice::WriteOnly) &&
                         std::cmp_equal(file.write(text.data(), std::ssize(text)), text.size()) &&
                         file.commit();
  failure_ = isWritten ? std::nullopt
                       : std::optional(fmt::format("The history could not be saved: {}.",
                                                   toUtf8(file.errorString())));
  onOutcome_();
}
}  // namespace orvane
