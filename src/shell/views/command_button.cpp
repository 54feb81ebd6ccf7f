#include "shell/views/command_button.h"

#include <QEvent>
#include <QMenu>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "shell/views/qt_text.h"
#include "shell/views/symbol_icon.h"
#include "shell/views/theme.h"

namespace orvane {
namespace {

constexpr int symbolSize = theme::symbolSize + 4;

/// The command's key, and the ones that a user of this desktop would try as well.
QList<QKeySequence> shortcuts(const std::string& keyEquivalent) {
  if (keyEquivalent.empty()) { return {}; }
  const auto key = toQString(keyEquivalent).toUpper();
  QList<QKeySequence> keys{QKeySequence(QStringLiteral("Ctrl+") + key)};
  if (keyEquivalent == "?") {
    keys.append(QKeySequence(Qt::Key_F1));
    keys.append(QKeySequence(QStringLiteral("Ctrl+Shift+?")));
  }
  return keys;
}

void addCommand(QMenu& menu, const MenuItem& item) {
  if (item.isSeparator()) {
    menu.addSeparator();
    return;
  }
  auto* const command = menu.addAction(toQString(item.title));
  command->setEnabled(item.enabled);
  command->setShortcuts(shortcuts(item.keyEquivalent));
  command->setShortcutContext(Qt::ApplicationShortcut);
  QObject::connect(command, &QAction::triggered, &menu, [action = item.action] {
    if (action) { action(); }
  });
}

}  // namespace

CommandButton::CommandButton(const Menu& commands, QWidget* parent) : QPushButton(parent) {
  setFlat(true);
  setAutoDefault(false);
  setIconSize({symbolSize, symbolSize});
  setFixedSize(theme::controlHeight, theme::controlHeight);
  setAccessibleName(tr("Help and commands"));
  setToolTip(tr("Help and commands"));
  auto* const menu = new QMenu(this);
  for (const auto& item : commands.items) {
    addCommand(*menu, item);
  }
  setMenu(menu);
  // Keys of a menu that is not open work only where its commands belong to a visible widget.
  addActions(menu->actions());
  drawSymbol();
}

void CommandButton::changeEvent(QEvent* event) {
  QPushButton::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) { drawSymbol(); }
}

void CommandButton::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionButton option;
  initStyleOption(&option);
  option.features.setFlag(QStyleOptionButton::HasMenu, false);  // an arrow says nothing here
  QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
}

void CommandButton::drawSymbol() {
  setIcon(symbolIcon(QStringLiteral("questionmark.circle"), symbolSize, palette()));
}

}  // namespace orvane
