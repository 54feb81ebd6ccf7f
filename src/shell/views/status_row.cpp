#include "shell/views/status_row.h"

#include <QHBoxLayout>

namespace orvane {

StatusRow::StatusRow(const QString& subject, std::function<void()> onRefresh, QWidget* parent)
    : QWidget(parent),
      symbol_(new SymbolLabel(this)),
      text_(new TextLabel(theme::TextStyle::callout, theme::TextColor::secondary, this)),
      button_(new RefreshButton(subject, std::move(onRefresh), this)) {
  text_->setWordWrap(true);
  text_->makeSelectable();
  symbol_->showSymbol(QStringLiteral("exclamationmark.triangle.fill"), theme::TextColor::orange);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(theme::smallSpacing);
  row->addWidget(symbol_);
  row->addWidget(text_, 1);
  row->addWidget(button_);
}

void StatusRow::showStatus(const StatusLine& status, const RefreshButtonState& refresh) {
  const bool isWarning = status.kind == StatusLine::Kind::warning;
  symbol_->setVisible(isWarning);
  text_->showText(status.text);
  text_->setColor(isWarning ? theme::TextColor::orange : theme::TextColor::secondary);
  button_->showState(refresh);
}

}  // namespace orvane
