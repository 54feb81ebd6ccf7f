#include <gmock/gmock.h>

#include "shell/menu_bar/menu_bar_status.h"
#include "shell/menu_bar/status_menu.h"

namespace orvane::test {
namespace {

using testing::ElementsAre;

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
      {State().address(), {false, "Loading", false}},
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

TEST(StatusMenu, BeginsWithTheFiguresThereAre) {
  EXPECT_THAT(titles(makeStatusMenu(State().stats(203, 7).summary(0).value, sats, {})),
              ElementsAre("Balance 203 sats", "Today 7 sats", "Address 0 sats", "-", "Open Orvane",
                          "Refresh Now", "-", "Orvane Help", "About Orvane", "-", "Quit Orvane"));
  EXPECT_THAT(titles(makeStatusMenu(State().summary(9).value, sats, {})),
              ElementsAre("Address 9 sats", "-", "Open Orvane", "Refresh Now", "-", "Orvane Help",
                          "About Orvane", "-", "Quit Orvane"));
  EXPECT_THAT(titles(makeStatusMenu(BalanceState(), sats, {})),
              ElementsAre("Open Orvane", "Refresh Now", "-", "Orvane Help", "About Orvane", "-",
                          "Quit Orvane"));
}

TEST(StatusMenu, FiguresCannotBeChosen) {
  const auto menu = makeStatusMenu(State().stats(203, 7).summary(0).value, sats, {});
  for (const auto* const title : {"Balance 203 sats", "Today 7 sats", "Address 0 sats"}) {
    EXPECT_FALSE(item(menu, title).enabled) << title;
  }
}

TEST(StatusMenu, RefreshNeedsATokenOrAnAddress) {
  const auto enabled = [](const State& state) {
    return item(makeStatusMenu(state.value, sats, {}), "Refresh Now").enabled;
  };
  EXPECT_FALSE(enabled(State()));
  EXPECT_TRUE(enabled(State().token()));
  EXPECT_TRUE(enabled(State().address()));
}

TEST(StatusMenu, EachCommandDoesItsOwnAndHasItsKey) {
  std::string done;
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
