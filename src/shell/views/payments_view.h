#pragma once

#include <QPushButton>
#include <QWidget>
#include <string>
#include "core/balance_store.h"
#include "platform/async/signal.h"
#include "platform/text/locale_format.h"
#include "shell/view_models/payments.h"
#include "shell/views/coalesced_update.h"
#include "shell/views/frames.h"

namespace orvane {
/// The content of the payments window: what has been paid to the watched address, and for one
/// payment its id to copy and its page to open.
class PaymentsView final : public QWidget {
 public:
  /// `store` and `format` outlive the view. `explorerWebHost`: host of the transactions' pages.
  PaymentsView(BalanceStore& store, const LocaleFormat& format, std::string explorerWebHost,
               QWidget* parent = nullptr);

 private:
  class Table;

  void addCommand(QPushButton* button, void (PaymentsView::*command)() const);
  void layOut();
  void showState();
  void showCommands();
  void copyId() const;
  void openInBrowser() const;

  BalanceStore& store_;
  std::string explorerWebHost_;
  TextLabel* hint_;
  Panel* panel_;
  Table* table_;
  QPushButton* copy_;
  QPushButton* open_;
  CoalescedUpdate update_;
  Registration subscription_;
};
}  // namespace orvane
