#include "shell/views/cards.h"
#include <QHBoxLayout>
#include <array>
#include "shell/views/block_reward_list.h"
#include "shell/views/flow_layout.h"
#include "shell/views/parted_label.h"

namespace orvane {
using theme::TextColor;
using theme::TextStyle;

namespace {
constexpr std::array units{BalanceUnit::sats, BalanceUnit::btc};

MetricBlock* cardMetric(QWidget* parent) {
  return new MetricBlock(TextStyle::caption, TextStyle::titleMediumFigure, parent);
}

SegmentedPicker* unitPicker(const QString& card, BalanceStore& store, QWidget* parent) {
  return new SegmentedPicker(
      card, QWidget::tr("Unit"), {QWidget::tr("sats"), QWidget::tr("BTC")},
      [&store](std::size_t index) { store.setUnit(units.at(index)); }, parent);
}

void showUnit(SegmentedPicker& picker, BalanceUnit unit) {
  picker.showChoice(unit == units[0] ? 0 : 1);
}

FlowLayout* titleRow(const QString& title, SegmentedPicker* unit, QWidget* parent) {
  auto* const row =
      new FlowLayout(FlowLayout::Align::baseline, theme::smallSpacing, theme::smallSpacing);
  row->addWidget(new TextLabel(title, TextStyle::headline, TextColor::secondary, parent));
  row->addStretch();
  row->addWidget(unit);
  return row;
}
}  // namespace

/// A card's large figure with its value in money beside it, on one baseline, or beneath it.
class BalanceRow final : public QWidget {
 public:
  /// `title`: what the figure is, for screen readers.
  BalanceRow(const QString& title, QWidget* parent)
      : QWidget(parent),
        amount_(new FigureLabel(TextStyle::largeFigure, TextColor::primary, this)),
        fiatValue_(new FigureLabel(TextStyle::title2MediumFigure, TextColor::secondary, this)),
        row_(new FlowLayout(FlowLayout::Align::baseline, theme::barPadding, 0, this)) {
    row_->addWidget(amount_);
    row_->addWidget(fiatValue_);
    amount_->setAccessibleDescription(title);
    amount_->makeSelectable(TextLabel::By::mouse);
    fiatValue_->makeSelectable(TextLabel::By::mouse);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
  }

  void showFigure(const BalanceFigure& figure) {
    amount_->showText(figure.text);
    amount_->setColor(figure.isPlaceholder ? TextColor::secondary : TextColor::primary);
    fiatValue_->showTextOrHide(figure.fiatValue);
  }

  static void placeValuesAlike(BalanceRow& one, BalanceRow& other) {
    FlowLayout::wrapAlike(*one.row_, *other.row_);
  }

 protected:
  void showEvent(QShowEvent* event) override {
    QWidget::showEvent(event);
    row_->invalidate();
  }
  void hideEvent(QHideEvent* event) override {
    QWidget::hideEvent(event);
    row_->invalidate();
  }

 private:
  FigureLabel* amount_;
  FigureLabel* fiatValue_;
  FlowLayout* row_;
};

/// The line beneath a card's figures: when they were read, or what went wrong, and a button that
/// reads them again.
class StatusRow final : public QWidget {
 public:
  /// `subject`: what the button refreshes, for screen readers.
  StatusRow(const QString& subject, BalanceStore& store, QWidget* parent)
      : QWidget(parent),
        symbol_(new SymbolLabel(this)),
        text_(new PartedLabel(TextStyle::callout, TextColor::secondary, this)),
        button_(new RefreshButton(
            subject,
            [&store] {
              store.restartPolling();
              store.restartAddressWatch();
            },
            this)) {
    text_->makeSelectable();
    symbol_->showSymbol(QStringLiteral("exclamationmark.triangle.fill"), TextColor::orange);
    auto* const line = new QHBoxLayout;
    line->addWidget(symbol_);
    line->addWidget(text_, 1);
    row_ = new QBoxLayout(QBoxLayout::LeftToRight, this);
    for (QBoxLayout* const each : {row_, static_cast<QBoxLayout*>(line)}) {
      each->setContentsMargins(0, 0, 0, 0);
      each->setSpacing(theme::smallSpacing);
    }
    row_->addLayout(line, 1);
    row_->addWidget(button_, 0, Qt::AlignTrailing | Qt::AlignVCenter);
  }

  void showStatus(const StatusLine& status, const RefreshButtonState& refresh) {
    symbol_->setVisible(status.isWarning);
    text_->showText(status.text);
    announcer_.notice(*text_, status.text, status.isWarning);
    text_->setColor(status.isWarning ? TextColor::orange : TextColor::secondary);
    button_->showState(refresh);
    placeButton();
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QWidget::resizeEvent(event);
    placeButton();
  }

 private:
  /// Beneath the text where a part of it would break beside the button, or a failure, which is a
  /// sentence, would have less than half of the width: so it is in large fonts.
  void placeButton() {
    const bool isFailure = symbol_->isVisibleTo(this);
    const int wanted = isFailure ? width() / 2 + symbol_->width() : text_->widthOfParts();
    const bool fits = wanted + 2 * theme::smallSpacing + button_->sizeHint().width() <= width();
    const auto direction = fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
    if (direction == row_->direction()) { return; }
    row_->setDirection(direction);
    updateGeometry();
  }

  QBoxLayout* row_;
  SymbolLabel* symbol_;
  PartedLabel* text_;
  RefreshButton* button_;
  FailureAnnouncer announcer_;
};

PoolCardView::PoolCardView(BalanceStore& store, QWidget* parent)
    : Card(theme::Ground::greenCard, parent) {
  const auto title = tr("Braiins Pool balance");
  unit_ = unitPicker(title, store, this);
  balance_ = new BalanceRow(title, this);
  metrics_ = new MetricRow(&cardMetric, this);
  status_ = new StatusRow(title, store, this);
  rows()->addLayout(titleRow(title, unit_, this));
  rows()->addWidget(balance_);
  rows()->addWidget(metrics_);
  rows()->addWidget(status_);
}

void PoolCardView::showCard(const PoolCard& card, BalanceUnit unit) {
  showUnit(*unit_, unit);
  balance_->showFigure(card.balance);
  metrics_->showMetrics(card.metrics);
  status_->showStatus(card.status, card.refresh);
}

AddressCardView::AddressCardView(BalanceStore& store, QWidget* parent)
    : Card(theme::Ground::orangeCard, parent) {
  const auto title = tr("Watched address");
  unit_ = unitPicker(title, store, this);
  auto* const chip = makeAddressChip();
  balance_ = new BalanceRow(title, this);
  metrics_ = new MetricRow(&cardMetric, this);
  blockRewards_ = new BlockRewardList(this);
  status_ = new StatusRow(title, store, this);
  rows()->addLayout(titleRow(title, unit_, this));
  rows()->addWidget(chip, 0, Qt::AlignLeading);
  rows()->addWidget(balance_);
  rows()->addWidget(metrics_);
  rows()->addWidget(blockRewards_);
  rows()->addWidget(status_);
}

QWidget* AddressCardView::makeAddressChip() {
  auto* const chip = new Chip(this);
  address_ = new FigureLabel(TextStyle::calloutMonospaced, TextColor::primary, chip);
  address_->makeSelectable();
  origin_ = new TextLabel(tr("from Hashwick"), TextStyle::caption, TextColor::secondary, chip);
  auto* const line = new FlowLayout(FlowLayout::Align::baseline, theme::smallSpacing, 0, chip);
  line->setContentsMargins(theme::chipHorizontalPadding, theme::chipVerticalPadding,
                           theme::chipHorizontalPadding, theme::chipVerticalPadding);
  line->addWidget(address_);
  line->addWidget(origin_);
  return chip;
}

void AddressCardView::showCard(const AddressCard& card, BalanceUnit unit) {
  showUnit(*unit_, unit);
  address_->showText(card.address);
  origin_->setVisible(card.isFromMiner);
  balance_->showFigure(card.balance);
  metrics_->showMetrics(card.metrics);
  blockRewards_->showLines(card.blockRewards);
  status_->showStatus(card.status, card.refresh);
}

void placeValuesAlike(PoolCardView& pool, AddressCardView& address) {
  BalanceRow::placeValuesAlike(*pool.balance_, *address.balance_);
}
}  // namespace orvane
