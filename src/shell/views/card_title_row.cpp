#include "shell/views/card_title_row.h"

#include <QHBoxLayout>
#include <array>

#include "shell/views/text_label.h"

namespace orvane {
namespace {

constexpr std::array units{BalanceUnit::sats, BalanceUnit::btc};

}  // namespace

CardTitleRow::CardTitleRow(const QString& title, const std::function<void(BalanceUnit)>& onChoose,
                           QWidget* parent)
    : QWidget(parent) {
  auto* const heading =
      new TextLabel(theme::TextStyle::headline, theme::TextColor::secondary, this);
  heading->setText(title);
  unit_ = new SegmentedPicker(
      tr("Unit"), {tr("sats"), tr("BTC")},
      [onChoose](int index) { onChoose(units.at(static_cast<std::size_t>(index))); }, this);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(heading);
  row->addStretch();
  row->addWidget(unit_);
}

void CardTitleRow::showUnit(BalanceUnit unit) {
  unit_->showChoice(unit == BalanceUnit::sats ? 0 : 1);
}

}  // namespace orvane
