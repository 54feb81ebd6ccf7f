#include "shell/menu_bar/menu_bar_status.h"

namespace orvane {
namespace {

std::string statusText(const BalanceState& state, const AmountText& amountText) {
  if (state.accountStatus) { return *state.accountStatus; }
  if (state.addressStatus) { return *state.addressStatus; }
  if (state.stats) { return "Balance " + amountText(state.stats->balanceSats); }
  if (state.addressSummary) { return "Address " + amountText(state.addressSummary->confirmedSats); }
  if (state.token.empty() && state.watchedAddress.empty()) { return "No API token or address"; }
  return "Loading";
}

}  // namespace

MenuBarStatus menuBarStatus(const BalanceState& state, const AmountText& amountText) {
  return {.working = state.stats || state.addressSummary,
          .text = statusText(state, amountText),
          .alert = state.accountStatus || state.addressStatus};
}

}  // namespace orvane
