#include <algorithm>

#include <gtest/gtest.h>

#include "shell/menu_bar/status_menu.h"

namespace orvane::test {
namespace {

std::string sats(std::int64_t amount) { return std::to_string(amount) + " sats"; }

/// A state in one line: `State().token().stats(203, 7)`.
struct State {
  BalanceState value;
  State& token() { return value.token = "abc", *this; }
  State& address() { return value.watchedAddress = "bc1q", *this; }
  State& stats(std::int64_t balance, std::int64_t today) {
    value.stats.emplace().balanceSats = balance;
    value.stats->todayRewardSats = today;
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
  const std::vector<Case> cases{
      {State(), {false, "No API token or address", false}},
      {State().token(), {false, "Loading", false}},
      {State().token().stats(203, 7), {true, "Balance 203 sats", false}},
      {State().address().summary(-5), {true, "Address -5 sats", false}},
      {State().stats(203, 7).summary(0), {true, "Balance 203 sats", false}},
      {State().token().addressStatus("b"), {false, "b", true}},
      {State().stats(203, 7).addressStatus("b"), {true, "b", true}},
      {State().stats(203, 7).summary(0).accountStatus("a").addressStatus("b"), {true, "a", true}},
  };
  for (const auto& [state, expected] : cases) {
    const auto status = menuBarStatus(state.value, sats);
    EXPECT_EQ(status.text, expected.text);
    EXPECT_EQ(status.working, expected.working) << expected.text;
    EXPECT_EQ(status.alert, expected.alert) << expected.text;
  }
}

std::vector<std::string> titles(const Menu& menu) {
  std::vector<std::string> titles;
  for (const auto& item : menu.items) {
    titles.push_back(item.isSeparator() ? "-" : item.title);
  }
  return titles;
}

const MenuItem& item(const Menu& menu, const std::string& title) {
  return *std::ranges::find(menu.items, title, &MenuItem::title);
}

TEST(StatusMenu, BeginsWithTheFiguresThereAreWhichCannotBeChosen) {
  struct Case {
    State state;
    std::vector<std::string> figures;
  };
  for (const auto& [state, figures] :
       {Case{State().stats(203, 7).summary(0),
             {"Balance 203 sats", "Today 7 sats", "Address 0 sats", "-"}},
        Case{State().summary(9), {"Address 9 sats", "-"}}, Case{State(), {}}}) {
    const auto menu = makeStatusMenu(state.value, sats, {});
    auto expected = figures;
    for (const auto* const title :
         {"Open Orvane", "Refresh Now", "-", "Orvane Help", "About Orvane", "-", "Quit Orvane"}) {
      expected.emplace_back(title);
    }
    EXPECT_EQ(titles(menu), expected);
    for (std::size_t row = 0; row + 1 < figures.size(); ++row) {
      EXPECT_FALSE(menu.items[row].enabled) << figures[row];
    }
    EXPECT_FALSE(item(menu, "Refresh Now").enabled) << "without a token or an address";
  }
}

TEST(StatusMenu, EachCommandDoesItsOwnAndHasItsKey) {
  std::string done;
  EXPECT_TRUE(item(makeStatusMenu(State().address().value, sats, {}), "Refresh Now").enabled);
  const auto menu = makeStatusMenu(State().token().value, sats,
                                   {.showMainWindow = [&] { done = "open"; },
                                    .refreshNow = [&] { done = "refresh"; },
                                    .showHelp = [&] { done = "help"; },
                                    .showAbout = [&] { done = "about"; },
                                    .quit = [&] { done = "quit"; }});
  struct Case {
    const char* title;
    const char* does;
    const char* key;
  };
  for (const auto& [title, does, key] :
       {Case{"Open Orvane", "open", ""}, Case{"Refresh Now", "refresh", "r"},
        Case{"Orvane Help", "help", ""}, Case{"About Orvane", "about", ""},
        Case{"Quit Orvane", "quit", "q"}}) {
    item(menu, title).action();
    EXPECT_EQ(done, does);
    EXPECT_EQ(item(menu, title).keyEquivalent, key) << title;
    EXPECT_TRUE(item(menu, title).enabled) << title;
  }
}

}  // namespace
}  // namespace orvane::test
