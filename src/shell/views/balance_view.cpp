#include "shell/views/balance_view.h"
#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QShortcut>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>
#include "platform/desktop/qt/window_placement.h"
#include "platform/desktop/symbols.h"
#include "shell/view_models/window_contents.h"
#include "shell/views/cards.h"
#include "shell/views/controls.h"
#include "shell/views/history_section.h"
#include "shell/views/qt_text.h"
#include "shell/views/settings_section.h"
#include "shell/views/theme.h"
#include "shell/views/workers_section.h"

namespace orvane {
namespace {
constexpr int helpSymbolSize = theme::symbolSize + 4;
constexpr int focusRadius = 4;

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
  command->setShortcuts(shortcuts(item.keyEquivalent));
  command->setShortcutContext(Qt::ApplicationShortcut);
  command->setCheckable(item.checked.has_value());
  QObject::connect(command, &QAction::triggered, &menu, [action = item.action] {
    if (action) { action(); }
  });
}

/// A button that opens a menu of the application's commands. Their keys work in every window of
/// the application while the button is on screen.
class CommandButton final : public QPushButton {
 public:
  CommandButton(const std::function<Menu()>& commands, QWidget* parent) : QPushButton(parent) {
    setFlat(true);
    setAutoDefault(false);
    setAccessibleName(tr("Help and commands"));
    setToolTip(tr("Help and commands"));
    auto* const menu = new QMenu(this);
    for (const auto& item : commands().items) {
      addCommand(*menu, item);
    }
    setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, [this, commands] { showCommands(commands()); });
    // Keys of a menu that is not open work only where its commands belong to a visible widget.
    addActions(menu->actions());
    drawSymbol();
  }

  /// Which of the commands can be given now.
  void showCommands(const Menu& commands) {
    const auto rows = menu()->actions();
    for (qsizetype row = 0; row < rows.size(); ++row) {
      const auto& command = commands.items[static_cast<std::size_t>(row)];
      rows[row]->setEnabled(command.enabled);
      rows[row]->setChecked(command.checked.value_or(false));
    }
  }

 protected:
  void changeEvent(QEvent* event) override {
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationFontChange) {
      drawSymbol();
    }
  }

  void paintEvent(QPaintEvent* /*event*/) override {
    QStyleOptionButton option;
    initStyleOption(&option);
    option.features.setFlag(QStyleOptionButton::HasMenu, false);  // an arrow says nothing here
    QStylePainter painter(this);
    painter.drawControl(QStyle::CE_PushButton, option);
    // Styles draw no frame around a flat button, whatever has the focus.
    if (option.state.testFlag(QStyle::State_HasFocus) &&
        option.state.testFlag(QStyle::State_KeyboardFocusChange)) {
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setPen(QPen(theme::accentColor(palette()), 2));
      painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), focusRadius, focusRadius);
    }
  }

 private:
  void drawSymbol() {
    const int size = theme::grown(helpSymbolSize);
    const int side = size + theme::controlHeight - helpSymbolSize;
    setFixedSize(side, side);
    setIconSize({size, size});
    setIcon(symbolIcon(QStringLiteral("questionmark.circle"), palette()));
  }
};

/// Carries a change of size out at once, so that a window which is about to appear appears in its
/// new size.
void layOutUpToWindow(QWidget& changed) {
  for (auto* widget = &changed; widget; widget = widget->parentWidget()) {
    if (widget->layout()) { widget->layout()->activate(); }
  }
}

/// Makes room in the window for content of the `least` size; one that has to become wider becomes
/// as wide as `ideal`. One that has its place grows on both sides alike; one that is yet to appear
/// is placed when it does.
void makeRoom(QWidget& content, const QSize& least, const QSize& ideal) {
  auto& window = *content.window();
  const bool isTooNarrow = content.width() < least.width();
  const QSize wanted(isTooNarrow ? ideal.width() : content.width(),
                     std::max(content.height(), least.height()));
  if (wanted == content.size()) { return; }
  if (isPlaced(window) || window.testAttribute(Qt::WA_Moved)) {
    const QSize size = window.size() + wanted - content.size();
    window.setGeometry(grownAboutCentre(roomOf(window), window.geometry(), size));
  } else {
    window.resize(window.size().expandedTo(wanted));
  }
}
}  // namespace

/// The bar at the bottom of the main window: closes it, and holds a menu of the application's
/// commands when there are any.
class CloseBar final : public QWidget {
 public:
  /// `onClose` runs for the Close button and for Escape.
  CloseBar(const std::function<void()>& onClose, const std::function<Menu()>& commands,
           QWidget* parent)
      : QWidget(parent) {
    auto* const close = new TextButton(tr("Close"), this);
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
    if (commands().items.empty()) { return; }
    commands_ = new CommandButton(commands, this);
    row->addWidget(commands_);
  }

  void showCommands(const Menu& commands) {
    if (commands_) { commands_->showCommands(commands); }
  }

 private:
  CommandButton* commands_ = nullptr;
};

BalanceView::BalanceView(BalanceStore& store, const LocaleFormat& format,
                         const BalanceViewSettings& settings, const std::function<void()>& onClose,
                         QWidget* parent)
    : QWidget(parent),
      store_(store),
      format_(format),
      commands_(settings.commands),
      update_(*this, [this] { showState(); }),
      subscription_(store.observe([this] { update_.request(); })) {
  // The Tab key goes from part to part in the order in which they are made.
  leftColumn_ = new ColumnArea(tr("Balance and settings"), theme::leftColumnSpacing, this);
  poolCard_ = new PoolCardView(store, leftColumn_->widget());
  addressCard_ = new AddressCardView(store, leftColumn_->widget());
  placeValuesAlike(*poolCard_, *addressCard_);
  settings_ = new SettingsSection(store, settings.poolWebHost, leftColumn_->widget());
  columnDivider_ = new Divider(Qt::Vertical, this);
  rightColumn_ = new ColumnArea(tr("Workers and history"), theme::rightColumnSpacing, this);
  account_ = new QWidget(rightColumn_->widget());
  workers_ = new WorkersSection(format, account_);
  history_ = new HistorySection(store, format, settings.askWhereToSave, account_);
  if (settings.layout) { history_->keepColumns(*settings.layout); }
  closeBar_ = new CloseBar(onClose, commands_, this);
  layOut();
  showState();
}

void BalanceView::layOut() {
  for (QWidget* part : std::initializer_list<QWidget*>{poolCard_, addressCard_, settings_}) {
    leftColumn_->column()->addWidget(part);
  }
  leftColumn_->column()->addStretch();
  auto* const account = new QVBoxLayout(account_);
  account->setSpacing(theme::rightColumnSpacing);
  account->addWidget(workers_);
  account->addWidget(history_, 1);
  account->setContentsMargins(0, 0, 0, 0);
  rightColumn_->column()->addWidget(account_, 1);

  auto* const columns = new QHBoxLayout;
  columns->setSpacing(0);
  columns->addWidget(leftColumn_);
  columns->addWidget(columnDivider_);
  columns->addWidget(rightColumn_, 1);
  auto* const window = new QVBoxLayout(this);
  window->setContentsMargins(0, 0, 0, 0);
  window->setSpacing(0);
  window->addLayout(columns, 1);
  window->addWidget(new Divider(Qt::Horizontal, this));
  window->addWidget(closeBar_);
}

void BalanceView::moveAccountTo(ColumnArea& area) {
  if (account_->parentWidget() == area.widget()) { return; }
  const bool isBelow = &area == leftColumn_;
  auto* const focused = account_->focusWidget();
  const bool hasFocus = focused && focused->hasFocus();
  account_->layout()->setContentsMargins(
      0, isBelow ? theme::rightColumnSpacing - theme::leftColumnSpacing : 0, 0, 0);
  auto& column = *area.column();
  column.insertWidget(isBelow ? column.count() - 1 : 0, account_, isBelow ? 0 : 1);
  account_->show();
  if (hasFocus) { focused->setFocus(Qt::OtherFocusReason); }
}

// Where the screen has no room for two columns, the second one's content follows the first one's:
// what scrolls sideways is not found, and figures are not compared in it.
void BalanceView::placeColumns() {
  const bool hasAccount = windowLayout(store_.state()).showsAccountColumn;
  const bool hasSize = testAttribute(Qt::WA_WState_Created);
  const bool isOneColumn = hasAccount && hasSize && width() < widthAround(accountWidth());
  moveAccountTo(isOneColumn ? *leftColumn_ : *rightColumn_);
  rightColumn_->setVisible(hasAccount && !isOneColumn);
  columnDivider_->setVisible(hasAccount && !isOneColumn);
  leftColumn_->setMaximumWidth(hasAccount && !isOneColumn ? theme::leftColumnWidth
                                                          : QWIDGETSIZE_MAX);
  // Not the parts': their column would ask for their height at a width that they do not take.
  leftColumn_->widget()->setMaximumWidth(
      isOneColumn ? QWIDGETSIZE_MAX : theme::readableWidth + 2 * theme::windowPadding);
}

void BalanceView::saveHistory() { history_->saveHistory(); }

void BalanceView::showState() {
  const auto& state = store_.state();
  const auto layout = windowLayout(state);
  if (layout.showsPoolCard) { poolCard_->showCard(poolCard(state, format_), state.unit); }
  if (layout.showsAddressCard) { addressCard_->showCard(addressCard(state, format_), state.unit); }
  poolCard_->setVisible(layout.showsPoolCard);
  addressCard_->setVisible(layout.showsAddressCard);
  if (isVisible()) { settings_->loadDrafts(); }
  settings_->showState();
  if (layout.showsAccountColumn) {
    workers_->showWorkers(state.workers);
    history_->showHistory(state);
  }
  closeBar_->showCommands(commands_());
  // In this order: the columns belong to the size that is asked for.
  askForSize();
  placeColumns();
}

int BalanceView::widthAround(int content) const {
  return theme::leftColumnWidth + columnDivider_->width() + 2 * theme::windowPadding + content;
}

int BalanceView::accountWidth() const {
  return std::max(workers_->leastWidth(), history_->leastWidth());
}

QSize BalanceView::leastSize() const {
  const auto wanted = windowLayout(store_.state());
  int width = wanted.minimumWidth;
  if (wanted.showsAccountColumn) {
    // In larger fonts the figures of the tables need more than the design's width.
    const int most = theme::grown(theme::rightColumnMinimumWidth) + theme::leftColumnWidth;
    width = std::max(width, std::min(widthAround(accountWidth()), most));
  }
  return QSize(width, wanted.minimumHeight).boundedTo(largestSize(roomOf(*window())));
}

QSize BalanceView::sizeHint() const {
  const QSize least = leastSize();
  if (!windowLayout(store_.state()).showsAccountColumn) { return least; }
  return QSize(widthAround(history_->widthOfOneRow()), 0)
      .boundedTo(largestSize(roomOf(*window())))
      .expandedTo(least);
}

void BalanceView::askForSize() {
  const QSize least = leastSize();
  if (least == minimumSize()) { return; }
  leftColumn_->setMinimumWidth(std::min(theme::leftColumnWidth, least.width()));
  makeRoom(*this, least, sizeHint());
  setMinimumSize(least);
  layOutUpToWindow(*this);
}

void BalanceView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ApplicationFontChange) { update_.request(); }
}

void BalanceView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  placeColumns();
  layout()->activate();
}

void BalanceView::showEvent(QShowEvent* event) {
  settings_->loadDrafts();
  askForSize();
  placeColumns();
  QWidget::showEvent(event);
}
}  // namespace orvane
