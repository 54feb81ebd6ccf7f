#include "shell/views/balance_row.h"

#include "shell/views/flow_layout.h"

namespace orvane {

using theme::TextColor;
using theme::TextStyle;

BalanceRow::BalanceRow(const QString& title, QWidget* parent)
    : QWidget(parent),
      amount_(new FigureLabel(TextStyle::largeFigure, TextColor::primary, this)),
      fiatValue_(new TextLabel(TextStyle::title2MediumFigure, TextColor::secondary, this)) {
  auto* const row = new FlowLayout(FlowLayout::Align::baseline, theme::barPadding, 0, this);
  row->addWidget(amount_);
  row->addWidget(fiatValue_);
  amount_->setAccessibleDescription(title);
  amount_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  fiatValue_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void BalanceRow::showFigure(const BalanceFigure& figure) {
  amount_->showText(figure.text);
  amount_->setColor(figure.isPlaceholder ? TextColor::secondary : TextColor::primary);
  fiatValue_->showTextOrHide(figure.fiatValue ? "≈ " + *figure.fiatValue : std::string());
}

}  // namespace orvane
