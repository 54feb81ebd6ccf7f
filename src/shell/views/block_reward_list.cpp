#include "shell/views/block_reward_list.h"

#include <QHBoxLayout>

#include "shell/views/symbol_icon.h"
#include "shell/views/text_label.h"

namespace orvane {

BlockRewardList::BlockRewardList(QWidget* parent) : QWidget(parent) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(theme::smallSpacing);
}

void BlockRewardList::showLines(const std::vector<BlockRewardLine>& lines) {
  while (lines_.size() > lines.size()) {
    delete lines_.back().row;
    lines_.pop_back();
  }
  while (lines_.size() < lines.size()) {
    lines_.push_back(makeLine());
  }
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const auto color = lines[i].isSpendable ? theme::TextColor::green : theme::TextColor::orange;
    lines_[i].symbol->showSymbol(QString::fromLatin1(lines[i].symbolName()), color);
    lines_[i].text->setColor(color);
    lines_[i].text->showText(lines[i].text);
  }
  setVisible(!lines.empty());
}

BlockRewardList::Line BlockRewardList::makeLine() {
  auto* const row = new QWidget(this);
  auto* const symbol = new SymbolLabel(row);
  auto* const text = new TextLabel(theme::TextStyle::calloutFigure, theme::TextColor::primary, row);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  text->setWordWrap(true);
  auto* const parts = new QHBoxLayout(row);
  parts->setContentsMargins(0, 0, 0, 0);
  parts->setSpacing(theme::smallSpacing);
  parts->addWidget(symbol);
  parts->addWidget(text, 1);
  layout()->addWidget(row);
  return {.row = row, .symbol = symbol, .text = text};
}

}  // namespace orvane
