#include "shell/views/close_bar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QShortcut>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "shell/views/controls.h"
#include "shell/views/qt_text.h"
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

/// A button that opens a menu of the application's commands. Their keys work in every window of
/// the application while the button is on screen.
class CommandButton final : public QPushButton {
 public:
  explicit CommandButton(const Menu& commands, QWidget* parent) : QPushButton(parent) {
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

 protected:
  void changeEvent(QEvent* event) override {
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) { drawSymbol(); }
  }

  void paintEvent(QPaintEvent* /*event*/) override {
    QStyleOptionButton option;
    initStyleOption(&option);
    option.features.setFlag(QStyleOptionButton::HasMenu, false);  // an arrow says nothing here
    QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
  }

 private:
  void drawSymbol() {
    setIcon(symbolIcon(QStringLiteral("questionmark.circle"), symbolSize, palette()));
  }
};

}  // namespace

CloseBar::CloseBar(const std::function<void()>& onClose, const Menu& commands, QWidget* parent)
    : QWidget(parent) {
  auto* const close = new QPushButton(tr("Close"), this);
  close->setAutoDefault(false);
  close->setMinimumHeight(theme::controlHeight);
  close->setToolTip(tr("Close the window; the app stays in the menu bar"));
  connect(close, &QPushButton::clicked, this, [onClose] { onClose(); });
  // Not the button's own shortcut: that one would first show the button pressed for a moment.
  auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(escape, &QShortcut::activated, this, [onClose] { onClose(); });
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(theme::windowPadding, theme::barPadding, theme::windowPadding,
                          theme::barPadding);
  row->addWidget(close);
  row->addStretch();
  if (!commands.items.empty()) { row->addWidget(new CommandButton(commands, this)); }
}

}  // namespace orvane
