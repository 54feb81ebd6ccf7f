#include "shell/menu_bar/status_menu.h"
#include <utility>

namespace orvane {
namespace {
std::string statusText(const BalanceState& state, const AmountText& amountText) {
  if (state.accountStatus) { return *state.accountStatus; }
  if (state.addressStatus) { return *state.addressStatus; }
  if (state.stats) { return "Balance " + amountText(state.stats->balanceSats); }
  if (state.addressSummary) { return "Address " + amountText(state.addressSummary->confirmedSats); }
  if (!state.expectsAccount() && state.watchedAddress.empty()) { return "No API token or address"; }
  return "Loading";
}

MenuItem figure(std::string title) { return {.title = std::move(title), .enabled = false}; }

void addFigures(Menu& menu, const BalanceState& state, const AmountText& amountText) {
  if (state.stats) {
    menu.items.push_back(figure("Balance " + amountText(state.stats->balanceSats)));
    menu.items.push_back(figure("Today " + amountText(state.stats->todayRewardSats)));
  }
  if (state.addressSummary) {
    menu.items.push_back(figure("Address " + amountText(state.addressSummary->confirmedSats)));
  }
  if (!menu.items.empty()) { menu.items.push_back(MenuItem::separator()); }
}
}  // namespace

MenuBarStatus menuBarStatus(const BalanceState& state, const AmountText& amountText) {
  return {.working = state.stats || state.addressSummary,
          .text = statusText(state, amountText),
          .alert = state.accountStatus || state.addressStatus};
}

Menu makeStatusMenu(const BalanceState& state, const AmountText& amountText,
                    StatusMenuActions actions) {
  Menu menu;
  addFigures(menu, state, amountText);
  auto& items = menu.items;
  items.push_back({.title = "Open Orvane", .action = std::move(actions.showMainWindow)});
  items.push_back({.title = "Refresh Now",
                   .enabled = state.hasSource(),
                   .keyEquivalent = "r",
                   .action = std::move(actions.refreshNow)});
  items.push_back(MenuItem::separator());
  items.push_back({.title = "Orvane Help", .action = std::move(actions.showHelp)});
  items.push_back({.title = "About Orvane", .action = std::move(actions.showAbout)});
  items.push_back(MenuItem::separator());
  items.push_back(
      {.title = "Quit Orvane", .keyEquivalent = "q", .action = std::move(actions.quit)});
  return menu;
}
}  // namespace orvane
