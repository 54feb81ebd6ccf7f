#include "shell/views/close_bar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>

#include "shell/views/symbol_icon.h"
#include "shell/views/theme.h"

namespace orvane {
namespace {

class HelpButton final : public QPushButton {
 public:
  explicit HelpButton(QWidget* parent) : QPushButton(parent) {
    setFlat(true);
    setAutoDefault(false);
    setIconSize({theme::symbolSize + 4, theme::symbolSize + 4});
    drawSymbol();
  }

 protected:
  void changeEvent(QEvent* event) override {
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) drawSymbol();
  }

 private:
  void drawSymbol() {
    setIcon(symbolIcon(QStringLiteral("questionmark.circle"), theme::symbolSize + 4, palette()));
  }
};

}  // namespace

CloseBar::CloseBar(const std::function<void()>& onClose, const std::function<void()>& onHelp,
                   QWidget* parent)
    : QWidget(parent) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(theme::windowPadding, theme::barPadding, theme::windowPadding,
                          theme::barPadding);
  auto* const close = new QPushButton(tr("Close"), this);
  close->setAutoDefault(false);
  // Not the button's own shortcut: that one would first show the button pressed for a moment.
  auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(escape, &QShortcut::activated, this, [onClose] { onClose(); });
  close->setToolTip(tr("Close the window; the app stays in the menu bar"));
  connect(close, &QPushButton::clicked, this, [onClose] { onClose(); });
  row->addWidget(close);
  row->addStretch();
  if (!onHelp) return;
  auto* const help = new HelpButton(this);
  help->setAccessibleName(tr("Orvane Help"));
  help->setToolTip(tr("Orvane Help"));
  connect(help, &QPushButton::clicked, this, [onHelp] { onHelp(); });
  row->addWidget(help);
}

}  // namespace orvane
