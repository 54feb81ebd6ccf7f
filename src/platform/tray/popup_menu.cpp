#include "platform/tray/popup_menu.h"

#include <QAction>
#include <QKeySequence>

namespace orvane {

void PopupMenu::popUp(const Menu& menu, const QPoint& position) {
  shown_ = std::make_unique<QMenu>();
  for (const auto& item : menu.items) {
    addRow(item);
  }
  shown_->popup(position);
}

void PopupMenu::addRow(const MenuItem& item) {
  if (item.isSeparator()) {
    shown_->addSeparator();
    return;
  }
  auto title = QString::fromStdString(item.title);
  auto* const row = shown_->addAction(title.replace(u'&', QStringLiteral("&&")));
  row->setEnabled(item.enabled);
  if (!item.keyEquivalent.empty()) {
    const auto key = QString::fromStdString(item.keyEquivalent).toUpper();
    row->setShortcut(QKeySequence(QStringLiteral("Ctrl+") + key));
    row->setShortcutVisibleInContextMenu(true);
  }
  QObject::connect(row, &QAction::triggered, shown_.get(), [this, action = item.action] {
    if (action) { executor_.post(action); }
  });
}

}  // namespace orvane
