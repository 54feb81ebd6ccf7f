#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "core/announcer.h"
#include "core/balance_store.h"
#include "platform/text/locale_format.h"
#include "shell/views/balance_content.h"
#include "shell/views/coalesced_update.h"

namespace orvane {

/// What the view is told once, when it is made.
struct BalanceViewSettings {
  std::string poolWebHost;  ///< host of the pool's web site, for the account link
  Menu commands = {};       ///< see BalanceActions
};

/// The content of the main window: shows the store's figures and redraws, once per turn of the
/// event loop, when the store announces a change. Asks its window for the least size that the
/// parts on show need, as far as the screen has it.
class BalanceView final : public QWidget {
  Q_OBJECT

 public:
  /// `store` and `format` outlive the view. `onClose` runs for the Close button and for Escape.
  BalanceView(BalanceStore& store, const LocaleFormat& format, const BalanceViewSettings& settings,
              std::function<void()> onClose, QWidget* parent = nullptr);

 private:
  BalanceContent* content_;
  CoalescedUpdate update_;
  Announcer::Subscription subscription_;
};

}  // namespace orvane
