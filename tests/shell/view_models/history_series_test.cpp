#include "shell/view_models/history_series.h"
#include <gtest/gtest.h>

namespace orvane::test { namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;

BraiinsHistoryDay day(sys_days date, std::optional<double> rate = {},
                      std::optional<std::string> reward = {}) {
  return {.date = date + 1h, .averageHashRate = rate, .rewardBTC = std::move(reward)};
}

TEST(HistorySeriesTest, HasTheDaysThatThePoolListsWithinItsSpan) {
  constexpr sys_days newest = 2026y / 3 / 1;
  const std::vector<BraiinsHistoryDay> history{
      day(newest, 7.6e13, "0.00012345"), day(newest - std::chrono::days(2), {}, "none"),
      day(newest - std::chrono::days(29), 0.0, "-1"),
      day(newest - std::chrono::days(30), 1e15, "5"), day(sys_days(2006y / 1 / 1))};
  const auto month = historySeries(history, HistorySpan::days30);
  ASSERT_EQ(month.days.size(), 3U);
  EXPECT_EQ(month.lastDay - month.firstDay, 29);
  EXPECT_EQ(month.days[0].day, month.firstDay);
  EXPECT_EQ(month.days[0].sats, 0.0);
  EXPECT_EQ(month.days[1].sats, std::nullopt);
  EXPECT_EQ(month.days[1].hashRate, std::nullopt);
  EXPECT_EQ(month.days[2].row, 0U);
  EXPECT_EQ(month.topSats, 15'000);
  EXPECT_EQ(month.topHashRate, 8e13);
  EXPECT_EQ(historySeries(history, HistorySpan::days90).days.size(), 4U);
  EXPECT_EQ(historySeries(history, HistorySpan::all).days.size(), 5U);
  EXPECT_TRUE(historySeries({}, HistorySpan::all).days.empty());
}

TEST(HistorySeriesTest, MarksWeeksMonthsAndYearsAsTheLocaleWritesThem) {
  struct Case {
    sys_days first;
    std::size_t most;
    const char* locale;
    const char* ticks;
  };
  constexpr sys_days last = 2026y / 11 / 24;
  const Case cases[] = {{2026y / 10 / 26, 5, "en_US", "Oct 26,2026 Nov 2, Nov 9, Nov 16, Nov 23,"},
                        {2026y / 10 / 26, 3, "de_DE", "26. Okt.,2026 9. Nov., 23. Nov.,"},
                        {2025y / 11 / 25, 12, "en_US",
                         "Dec,2025 Jan,2026 Feb, Mar, Apr, May, Jun, Jul, Aug, Sep, Oct, Nov,"},
                        {2025y / 11 / 25, 5, "fr_FR", "janv.,2026 avr., juil., oct.,"},
                        {2006y / 1 / 1, 5, "en_US", ",2010 ,2015 ,2020 ,2025"},
                        {2006y / 1 / 1, 0, "en_US", ""},
                        {last, 5, "en_US", "Nov 24,2026"}};
  for (const auto& [first, most, locale, expected] : cases) {
    const LocaleFormat format({.numbers = locale, .dates = locale});
    HistorySeries series;
    series.firstDay = first.time_since_epoch().count();
    series.lastDay = last.time_since_epoch().count();
    std::string text;
    for (const DateTick& tick : dateTicks(series, most, format)) {
      text += (text.empty() ? "" : " ") + tick.name + "," + tick.year;
    }
    EXPECT_EQ(text, expected);
  }
}

TEST(HistorySeriesTest, NamesWhatADayBroughtAndTheEndsOfTheAxes) {
  const LocaleFormat format({.numbers = "en_US", .dates = "en_US"});
  BalanceState state;
  const auto listed = day(2026y / 11 / 15, 7.6e13, "0.00012345");
  EXPECT_EQ(historyDayText(listed, state, format), "Nov 15, 2026 · 12,345 sats · 76.00 TH/s");
  state.prices = CurrentBitcoinPrices{.eur = 80'000, .usd = 90'000};
  EXPECT_EQ(historyDayText(listed, state, format),
            "Nov 15, 2026 · 12,345 sats · 9.88 € at today's price · 76.00 TH/s");
  EXPECT_EQ(historyDayText(day(2026y / 11 / 15), state, format), "Nov 15, 2026 · — · —");
  EXPECT_EQ(axisSatsText(format, 15'000), "15,000 sats");
  EXPECT_EQ(axisSatsText(format, 0.5), "0.5 sats");
  EXPECT_EQ(axisHashRateText(1e15), "1 PH/s");
  EXPECT_EQ(axisHashRateText(500), "500 H/s");
}

}}  // namespace orvane::test
