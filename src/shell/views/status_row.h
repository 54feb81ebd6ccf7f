#pragma once

#include <QWidget>
#include <functional>

#include "shell/view_models/card_parts.h"
#include "shell/views/refresh_button.h"
#include "shell/views/symbol_icon.h"
#include "shell/views/text_label.h"

namespace orvane {

/// The line beneath a card's figures: when they were read, or what went wrong, and a button that
/// reads them again.
class StatusRow final : public QWidget {
  Q_OBJECT

 public:
  StatusRow(const QString& subject, std::function<void()> onRefresh, QWidget* parent = nullptr);
  void showStatus(const StatusLine& status, const RefreshButtonState& refresh);

 private:
  SymbolLabel* symbol_;
  TextLabel* text_;
  RefreshButton* button_;
};

}  // namespace orvane
