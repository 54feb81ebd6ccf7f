#include "shell/views/balance_view.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWidget>
#include <algorithm>

#include "shell/view_models/window_layout.h"
#include "shell/views/buttons.h"
#include "shell/views/frames.h"
#include "shell/views/theme.h"

namespace orvane {

CoalescedUpdate::CoalescedUpdate(QWidget& view, std::function<void()> update)
    : view_(view), update_(std::move(update)) {
  view_.installEventFilter(this);
}

void CoalescedUpdate::request() {
  isNeeded_ = true;
  if (isQueued_ || !view_.isVisible()) { return; }
  isQueued_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        isQueued_ = false;
        if (view_.isVisible()) { run(); }
      },
      Qt::QueuedConnection);
}

bool CoalescedUpdate::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show) { run(); }
  return QObject::eventFilter(watched, event);
}

void CoalescedUpdate::run() {
  if (!isNeeded_) { return; }
  isNeeded_ = false;
  update_();
}

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

namespace {

/// What a window's title bar and borders take of the screen, before there is a window to ask.
constexpr QSize usualWindowFrame(2, 40);

/// Carries a change of size out at once, so that a window which is about to appear appears in its
/// new size.
void layOutUpToWindow(QWidget& changed) {
  for (auto* widget = &changed; widget; widget = widget->parentWidget()) {
    if (widget->layout()) { widget->layout()->activate(); }
  }
}

}  // namespace

BalanceContent::BalanceContent(const BalanceState& state, const LocaleFormat& format,
                               const std::string& poolWebHost, BalanceActions actions,
                               QWidget* parent)
    : QWidget(parent), state_(state), format_(format), actions_(std::move(actions)) {
  // The Tab key goes from part to part in the order in which they are made.
  leftColumn_ = new ColumnArea(tr("Balance and settings"), theme::leftColumnSpacing, this);
  poolCard_ = new PoolCardView(actions_, leftColumn_->widget());
  addressCard_ = new AddressCardView(actions_, leftColumn_->widget());
  settings_ = new SettingsSection(state_, actions_, poolWebHost, leftColumn_->widget());
  columnDivider_ = new Divider(Qt::Vertical, this);
  rightColumn_ = new ColumnArea(tr("Workers and history"), theme::rightColumnSpacing, this);
  workers_ = new WorkersSection(format_, rightColumn_->widget());
  history_ = new HistorySection(format_, actions_, rightColumn_->widget());
  layOut();
  showState();
}

void BalanceContent::layOut() {
  for (QWidget* part : {static_cast<QWidget*>(poolCard_), static_cast<QWidget*>(addressCard_),
                        static_cast<QWidget*>(settings_)}) {
    part->setMaximumWidth(theme::readableWidth);
    leftColumn_->column()->addWidget(part);
  }
  leftColumn_->column()->addStretch();
  rightColumn_->column()->addWidget(workers_);
  rightColumn_->column()->addWidget(history_, 1);
  rightColumn_->widget()->setMinimumWidth(theme::rightColumnMinimumWidth - columnDivider_->width());

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
  window->addWidget(new CloseBar(actions_.close, actions_.commands, this));
}

void BalanceContent::showState() {
  const auto layout = windowLayout(state_);
  if (layout.showsPoolCard) { poolCard_->showCard(poolCard(state_, format_), state_.unit); }
  if (layout.showsAddressCard) {
    addressCard_->showCard(addressCard(state_, format_), state_.unit);
  }
  poolCard_->setVisible(layout.showsPoolCard);
  addressCard_->setVisible(layout.showsAddressCard);
  if (isVisible()) { settings_->loadDrafts(); }
  settings_->showState();
  if (layout.showsAccountColumn) {
    workers_->showWorkers(state_.workers);
    history_->showHistory(state_);
  }
  rightColumn_->setVisible(layout.showsAccountColumn);
  columnDivider_->setVisible(layout.showsAccountColumn);
  leftColumn_->setMaximumWidth(layout.showsAccountColumn ? theme::leftColumnWidth
                                                         : QWIDGETSIZE_MAX);
  askForSize();
}

void BalanceContent::askForSize() {
  const auto wanted = windowLayout(state_);
  const auto frame = window()->isVisible() ? window()->frameGeometry().size() - window()->size()
                                           : usualWindowFrame;
  const auto available = screen()->availableGeometry().size() - frame.expandedTo(usualWindowFrame);
  const QSize size = QSize(wanted.minimumWidth, wanted.minimumHeight).boundedTo(available);
  if (size == minimumSize()) { return; }
  leftColumn_->setMinimumWidth(std::min(theme::leftColumnWidth, size.width()));
  setMinimumSize(size);
  layOutUpToWindow(*this);
}

void BalanceContent::showEvent(QShowEvent* event) {
  settings_->loadDrafts();
  askForSize();
  QWidget::showEvent(event);
}

namespace {

BalanceActions actionsOn(BalanceStore& store, const BalanceViewSettings& settings,
                         std::function<void()> onClose) {
  return {
      .refresh =
          [&store] {
            store.restartPolling();
            store.restartAddressWatch();
          },
      .loadHistory = [&store] { store.loadHistory(); },
      .setToken = [&store](const std::string& text) { store.setToken(text); },
      .setOwnAddress = [&store](const std::string& text) { return store.setOwnAddress(text); },
      .setUnit = [&store](BalanceUnit unit) { store.setUnit(unit); },
      .setFiatCurrency =
          [&store](PreferredFiatCurrency currency) { store.setPreferredFiatCurrency(currency); },
      .close = std::move(onClose),
      .commands = settings.commands};
}

}  // namespace

BalanceView::BalanceView(BalanceStore& store, const LocaleFormat& format,
                         const BalanceViewSettings& settings, std::function<void()> onClose,
                         QWidget* parent)
    : QWidget(parent),
      content_(new BalanceContent(store.state(), format, settings.poolWebHost,
                                  actionsOn(store, settings, std::move(onClose)), this)),
      update_(*this, [this] { content_->showState(); }),
      subscription_(store.observe([this] { update_.request(); })) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(content_);
  update_.request();
}

}  // namespace orvane
