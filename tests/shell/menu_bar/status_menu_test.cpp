#include "shell/menu_bar/status_menu.h"
#include <gtest/gtest.h>

namespace orvane::test { namespace {

/// "(Today 7 sats)|-|Quit Orvane^q": the rows, with their keys; those that cannot be chosen stand
/// in brackets.
std::string rows(const Menu& menu) {
  std::string rows;
  for (const auto& item : menu.items) {
    rows += rows.empty() ? "" : "|";
    rows += item.isSeparator() ? "-" : item.enabled ? item.title : "(" + item.title + ")";
    rows += item.keyEquivalent.empty() ? "" : "^" + item.keyEquivalent;
  }
  return rows;
}

/// A state that has what the words name: "token balance failure" and "address total refusal".
BalanceState having(std::string_view words) {
  BalanceState state;
  if (words.contains("token")) { state.token = "abc"; }
  if (words.contains("address")) { state.watchedAddress = "bc1q"; }
  if (words.contains("balance")) {
    state.stats = BraiinsAccountStats{.todayRewardSats = 7, .balanceSats = 203};
  }
  state.isReadingToken = words.contains("reading");
  if (words.contains("total")) { state.addressSummary.emplace().confirmedSats = -5; }
  if (words.contains("failure")) { state.accountStatus = "no pool"; }
  if (words.contains("refusal")) { state.addressStatus = "no explorer"; }
  return state;
}

TEST(StatusMenu, FailuresComeFirstThenBalancesAndThePoolBeforeTheAddress) {
  const auto sats = [](std::int64_t amount) { return std::to_string(amount) + " sats"; };
  const std::string commands = "^r|-|Orvane Help|About Orvane|-|Quit Orvane^q";
  const std::string pool = "(Balance 203 sats)|(Today 7 sats)|";
  const std::string address = "(Address -5 sats)|";
  struct Case {
    const char* state;
    MenuBarStatus status;
    std::string figures;
  };
  for (const auto& [state, status, figures] :
       {Case{"", {false, "No API token or address", false}, ""},
        Case{"reading", {false, "Loading", false}, ""},
        Case{"token", {false, "Loading", false}, ""},
        Case{"address", {false, "Loading", false}, ""},
        Case{"token balance", {true, "Balance 203 sats", false}, pool + "-|"},
        Case{"address total", {true, "Address -5 sats", false}, address + "-|"},
        Case{"token balance total", {true, "Balance 203 sats", false}, pool + address + "-|"},
        Case{"token refusal", {false, "no explorer", true}, ""},
        Case{"token balance refusal", {true, "no explorer", true}, pool + "-|"},
        Case{"token total failure refusal", {true, "no pool", true}, address + "-|"}}) {
    const auto shown = menuBarStatus(having(state), sats);
    EXPECT_EQ(shown.text, status.text) << state;
    EXPECT_EQ(shown.working, status.working) << state;
    EXPECT_EQ(shown.alert, status.alert) << state;
    EXPECT_EQ(rows(makeStatusMenu(having(state), sats, {})),
              figures + "Open Orvane|" +
                  (*state == 't' || *state == 'a' ? "Refresh Now" : "(Refresh Now)") + commands)
        << state;
  }
}

}}  // namespace orvane::test
