#include <cmath>
#include <limits>

#include "shell/menu_bar/runtime_fixture.h"
#include "shell/menu_bar/status_button.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

TEST(MenuBarRateText, ScalesAndRefusesWhatIsNoRate) {
  constexpr auto infinity = std::numeric_limits<double>::infinity();
  struct Case {
    double rate;
    const char* text;
  };
  for (const auto& [rate, text] :
       {Case{0, ""}, Case{-1, ""}, Case{std::numeric_limits<double>::quiet_NaN(), ""},
        Case{infinity, ""}, Case{0.4, "0 H"}, Case{999, "999 H"}, Case{1'000, "1.00 kH"},
        Case{12'340, "12.3 kH"}, Case{999'999, "1000 kH"}, Case{1e6, "1.00 MH"},
        Case{2.5e9, "2.50 GH"}, Case{1e14, "100 TH"}, Case{std::nextafter(1e14, infinity), ""}}) {
    EXPECT_EQ(menuBarRateText(rate), text) << rate;
  }
}

/// Which text stands beside the icon, and when it is asked for again.
class MenuBarTextTest : public RuntimeFixture {
 protected:
  [[nodiscard]] std::string shownText() const { return statusBar.item.image.value().text; }
};

TEST_F(MenuBarTextTest, AnEmptyTextIsRetriedEveryFiveSecondsByOneTimer) {
  attach();
  std::optional<std::string> title;
  int asked = 0;
  runtime->menuBarTextProvider = [&] {
    ++asked;
    return title;
  };
  runtime->updateStatus(true, "Balance", false);
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
  EXPECT_EQ(executor.pendingTimers(), 2U) << "the regular timer and one retry";
  asked = 0;
  executor.advance(5s);
  EXPECT_EQ(asked, 1);
  title = "";
  executor.advance(5s);
  EXPECT_EQ(asked, 2);
  title = "203 sats";
  executor.advance(5s);
  EXPECT_EQ(shownText(), "203 sats");
  EXPECT_EQ(executor.pendingTimers(), 1U);
}

TEST_F(MenuBarTextTest, NoRetryWhileThereAreNoFigures) {
  attach();
  runtime->menuBarTextProvider = [] { return std::string("203 sats"); };
  runtime->updateStatus(false, "Loading", false);
  EXPECT_EQ(executor.pendingTimers(), 1U);
  EXPECT_EQ(shownText(), "");
}

TEST_F(MenuBarTextTest, WithoutATextProviderTheHashRateStandsThereAsTheSettingHasIt) {
  attach();
  std::optional<double> rate = 12.34e12;
  runtime->menuBarRateProvider = [&] { return rate; };
  runtime->updateStatus(true, "Balance", false);
  EXPECT_EQ(shownText(), "12.3 TH");
  EXPECT_EQ(statusBar.item.image->accessibilityDescription, "Orvane 12.3 TH/s");
  defaults.setBoolean(BackgroundRuntime::rateSettingKey, false);
  EXPECT_EQ(shownText(), "12.3 TH");
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
  EXPECT_EQ(shownText(), "");
  defaults.setText(BackgroundRuntime::rateSettingKey, "false");  // no boolean: counts as on
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
  EXPECT_EQ(shownText(), "12.3 TH");
  rate.reset();
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
  EXPECT_EQ(shownText(), "");
}

}  // namespace
}  // namespace orvane::test
