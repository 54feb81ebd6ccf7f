#include "shell/views/payments_view.h"
#include <QAction>
#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QHeaderView>
#include <QUrl>
#include <array>
#include <utility>
#include "shell/views/controls.h"
#include "shell/views/figure_table.h"

namespace orvane {
namespace {
enum Column { amount, kind, confirmed, transaction, columnTotal };

constexpr std::array<TableColumn, columnTotal> columns{
    {{.title = "Amount"},
     {.title = "Kind", .side = Qt::AlignLeft},
     {.title = "Confirmations"},
     {.title = "Transaction", .side = Qt::AlignLeft}}};

constexpr const char* widestId = "dddddddd…dddddddd";  ///< in the form in which ids are shown

class PaymentsModel final : public RecordTableModel<Payment> {
 public:
  PaymentsModel(const BalanceStore& store, const LocaleFormat& format, QObject* parent)
      : RecordTableModel(columns, parent), store_(store), format_(format) {}

 protected:
  [[nodiscard]] std::string text(const Payment& payment, int column) const override {
    const PaymentRow row = paymentRow(payment, store_.state(), format_);
    switch (column) {
      case amount:
        return row.amount;
      case kind:
        return row.kind;
      case confirmed:
        return row.confirmations;
      default:
        return row.shortId;
    }
  }
  [[nodiscard]] QVariant detail(const Payment& payment, int column, int role) const override {
    const bool isId = column == transaction && role == Qt::ToolTipRole;
    return isId ? plainToolTip(payment.transaction.txid) : QVariant();
  }

 private:
  const BalanceStore& store_;
  const LocaleFormat& format_;
};
}  // namespace

/// One row can be chosen; it stays chosen while others come and go.
class PaymentsView::Table final : public FigureTable {
 public:
  Table(const BalanceStore& store, const LocaleFormat& format, QWidget* parent)
      : FigureTable(parent), model_(new PaymentsModel(store, format, this)) {
    setModel(model_);
    setAccessibleName(tr("Payments"));
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    // Amounts are never cut off; an id that is has the whole in its tool tip.
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    horizontalHeader()->setSectionResizeMode(transaction, QHeaderView::Stretch);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int section) {
      if (section != transaction) { updateGeometry(); }
    });
  }

  void showPayments(std::vector<Payment> payments, BalanceUnit unit) {
    const auto chosen = chosenId();
    payments_ = std::move(payments);
    model_->setRecords(payments_);
    if (std::exchange(unit_, unit) != unit) { model_->retell(); }
    choose(chosen);
  }
  /// Empty: none.
  [[nodiscard]] std::string chosenId() const {
    const auto rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? std::string()
                          : payments_.at(static_cast<std::size_t>(rows[0].row())).transaction.txid;
  }

  /// In which all figures show, and ids in their short form.
  [[nodiscard]] QSize minimumSizeHint() const override {
    int width = std::max(titleWidth(transaction), cellWidth(transaction, widestId));
    for (const auto column : {amount, kind, confirmed}) {
      width += columnWidth(column);
    }
    return {width, FigureTable::minimumSizeHint().height()};
  }

 private:
  void choose(const std::string& id) {
    if (id.empty() || id == chosenId()) { return; }
    const auto found = std::ranges::find(
        payments_, id, [](const Payment& payment) { return payment.transaction.txid; });
    clearSelection();
    if (found != payments_.end()) { selectRow(static_cast<int>(found - payments_.begin())); }
  }

  PaymentsModel* model_;
  std::vector<Payment> payments_;
  BalanceUnit unit_ = BalanceUnit::sats;
};

PaymentsView::PaymentsView(BalanceStore& store, const LocaleFormat& format,
                           std::string explorerWebHost, QWidget* parent)
    : QWidget(parent),
      store_(store),
      explorerWebHost_(std::move(explorerWebHost)),
      hint_(wrappingText({}, theme::TextStyle::callout, theme::TextColor::secondary, this)),
      panel_(new Panel(this)),
      table_(new Table(store, format, panel_)),
      copy_(new TextButton(tr("Copy Transaction ID"), this)),
      open_(new TextButton(tr("Open in Browser"), this)),
      update_(*this, [this] { showState(); }),
      subscription_(store.observe([this] { update_.request(); })) {
  addCommand(copy_, &PaymentsView::copyId);
  addCommand(open_, &PaymentsView::openInBrowser);
  auto* const copied = table_->actions().constFirst();
  copied->setShortcut(QKeySequence::Copy);
  copied->setShortcutContext(Qt::WidgetShortcut);
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { showCommands(); });
  layOut();
  showState();
}

/// The same command as a button beneath the table and in the table's context menu.
void PaymentsView::addCommand(QPushButton* button, void (PaymentsView::*command)() const) {
  auto* const action = new QAction(button->text(), table_);
  table_->addAction(action);
  connect(action, &QAction::triggered, this, command);
  connect(button, &QPushButton::clicked, this, command);
}

void PaymentsView::layOut() {
  auto* const close = new TextButton(tr("Close"), this);
  connect(close, &QPushButton::clicked, this, [this] { window()->close(); });
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(copy_);
  buttons->addWidget(open_);
  buttons->addStretch();
  buttons->addWidget(close);
  panel_->rows()->addWidget(table_);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(theme::windowPadding, theme::windowPadding, theme::windowPadding,
                             theme::windowPadding);
  column->setSpacing(theme::barPadding);
  column->addWidget(hint_);
  column->addWidget(panel_, 1);
  column->addStretch();
  column->addLayout(buttons);
}

void PaymentsView::showState() {
  const auto& state = store_.state();
  const auto hint = paymentsHint(state);
  hint_->showTextOrHide(hint);
  panel_->setVisible(hint.empty());
  table_->showPayments(incomingPayments(state), state.unit);
  showCommands();
}

void PaymentsView::showCommands() {
  const bool isChosen = !table_->chosenId().empty();
  copy_->setEnabled(isChosen);
  open_->setEnabled(isChosen);
  for (auto* const action : table_->actions()) {
    action->setEnabled(isChosen);
  }
}

void PaymentsView::copyId() const {
  QGuiApplication::clipboard()->setText(toQString(table_->chosenId()));
}

void PaymentsView::openInBrowser() const {
  const auto url = transactionUrl(explorerWebHost_, table_->chosenId());
  QDesktopServices::openUrl(QUrl(toQString(url), QUrl::StrictMode));
}
}  // namespace orvane
