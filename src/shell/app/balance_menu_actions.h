#pragma once

#include <memory>

#include "core/balance_store.h"
#include "platform/desktop/broadcast_center.h"

namespace orvane {

/// Posted to open a window; its object is the id of the scene.
inline constexpr const char* openWindowBroadcast = "Orvane.openWindow";

/// What the commands of the status menu do.
class BalanceMenuActions {
 public:
  /// `broadcasts` outlives this object.
  explicit BalanceMenuActions(const BroadcastCenter& broadcasts) : broadcasts_(broadcasts) {}

  /// The store that is refreshed; set each time the menu is built.
  void setStore(std::weak_ptr<BalanceStore> store) { store_ = std::move(store); }

  void refreshNow() const;
  void showHelp() const;
  void showAbout() const;

 private:
  const BroadcastCenter& broadcasts_;
  std::weak_ptr<BalanceStore> store_;
};

}  // namespace orvane
