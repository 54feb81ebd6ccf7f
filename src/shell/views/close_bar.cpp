#include "shell/views/close_bar.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>

#include "shell/views/command_button.h"
#include "shell/views/theme.h"

namespace orvane {

CloseBar::CloseBar(const std::function<void()>& onClose, const Menu& commands, QWidget* parent)
    : QWidget(parent) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(theme::windowPadding, theme::barPadding, theme::windowPadding,
                          theme::barPadding);
  auto* const close = new QPushButton(tr("Close"), this);
  close->setAutoDefault(false);
  close->setMinimumHeight(theme::controlHeight);
  // Not the button's own shortcut: that one would first show the button pressed for a moment.
  auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(escape, &QShortcut::activated, this, [onClose] { onClose(); });
  close->setToolTip(tr("Close the window; the app stays in the menu bar"));
  connect(close, &QPushButton::clicked, this, [onClose] { onClose(); });
  row->addWidget(close);
  row->addStretch();
  if (!commands.items.empty()) { row->addWidget(new CommandButton(commands, this)); }
}

}  // namespace orvane
