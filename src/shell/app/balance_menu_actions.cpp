#include "shell/app/balance_menu_actions.h"

#include "shell/app/scenes.h"

namespace orvane {

void BalanceMenuActions::refreshNow() const {
  const auto store = store_.lock();
  if (!store) { return; }
  store->restartPolling();
  store->restartAddressWatch();
}

void BalanceMenuActions::showHelp() const {
  broadcasts_.post(openWindowBroadcast, std::string(helpSceneId));
}

void BalanceMenuActions::showAbout() const {
  broadcasts_.post(openWindowBroadcast, std::string(aboutSceneId));
}

}  // namespace orvane
