#include "shell/menu_bar/status_menu.h"

#include <string>

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

std::string sats(std::int64_t amount) { return std::to_string(amount) + " sats"; }

/// A state in one line: `State().token().stats(203, 7)`.
struct State {
  BalanceState value;
  State& token() { return value.token = "abc", *this; }
  State& address() { return value.watchedAddress = "bc1q", *this; }
  State& stats(std::int64_t balance, std::int64_t today) {
    value.stats = BraiinsAccountStats{.todayRewardSats = today, .balanceSats = balance};
    return *this;
  }
  State& summary(std::int64_t confirmed) {
    value.addressSummary.emplace().confirmedSats = confirmed;
    return *this;
  }
  State& accountStatus(std::string text) { return value.accountStatus = text, *this; }
  State& addressStatus(std::string text) { return value.addressStatus = text, *this; }
};

TEST(MenuBarStatus, FailuresComeFirstThenBalancesAndThePoolBeforeTheAddress) {
  struct Case {
    State state;
    MenuBarStatus expected;
  };
  for (const auto& [state, expected] :
       {Case{State(), {false, "No API token or address", false}},
        Case{State().token(), {false, "Loading", false}},
        Case{State().address(), {false, "Loading", false}},
        Case{State().token().stats(203, 7), {true, "Balance 203 sats", false}},
        Case{State().address().summary(-5), {true, "Address -5 sats", false}},
        Case{State().stats(203, 7).summary(0), {true, "Balance 203 sats", false}},
        Case{State().token().addressStatus("b"), {false, "b", true}},
        Case{State().stats(203, 7).addressStatus("b"), {true, "b", true}},
        Case{State().stats(203, 7).summary(0).accountStatus("a").addressStatus("b"),
             {true, "a", true}}}) {
    const auto status = menuBarStatus(state.value, sats);
    EXPECT_EQ(status.text, expected.text);
    EXPECT_EQ(status.working, expected.working) << expected.text;
    EXPECT_EQ(status.alert, expected.alert) << expected.text;
  }
}

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

TEST(StatusMenu, BeginsWithTheFiguresThereAreWhichCannotBeChosen) {
  const std::string rest = "^r|-|Orvane Help|About Orvane|-|Quit Orvane^q";
  struct Case {
    State state;
    std::string first;
  };
  for (const auto& [state, first] :
       {Case{State().token().stats(203, 7).summary(0),
             "(Balance 203 sats)|(Today 7 sats)|(Address 0 sats)|-|Open Orvane|Refresh Now"},
        Case{State().address().summary(9), "(Address 9 sats)|-|Open Orvane|Refresh Now"},
        Case{State(), "Open Orvane|(Refresh Now)"}}) {
    EXPECT_EQ(rows(makeStatusMenu(state.value, sats, {})), first + rest);
  }
}

TEST(StatusMenu, EachCommandDoesItsOwn) {
  std::string done;
  const auto menu = makeStatusMenu({}, sats,
                                   {.showMainWindow = [&] { done += "open "; },
                                    .refreshNow = [&] { done += "refresh "; },
                                    .showHelp = [&] { done += "help "; },
                                    .showAbout = [&] { done += "about "; },
                                    .quit = [&] { done += "quit "; }});
  for (const auto& item : menu.items) {
    if (item.action) { item.action(); }
  }
  EXPECT_EQ(done, "open refresh help about quit ");
}

}  // namespace
}  // namespace orvane::test
