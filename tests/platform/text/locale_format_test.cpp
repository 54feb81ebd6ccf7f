#include "platform/text/locale_format.h"

#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

using namespace std::chrono;
using namespace std::string_literals;

constexpr sys_seconds afternoon = sys_days{2025y / November / 15} + 14h + 5min;

LocaleFormat format(const std::string& locale, const std::string& timeZone = "UTC") {
  return LocaleFormat({.numbers = locale, .dates = locale, .timeZone = timeZone});
}

struct LocaleCase {
  std::string locale;
  std::string integer;
  std::string fixed;
  std::string shortTime;
  std::string mediumDate;
};

TEST(LocaleFormatTest, FollowsTheLocale) {
  const std::vector<LocaleCase> cases{
      {"en_US", "-1,234,567", "1,234.50", "2:05\u202fPM", "Nov 15, 2025"},
      {"de_DE", "-1.234.567", "1.234,50", "14:05", "15.11.2025"},
      {"fr_FR", "-1\u202f234\u202f567", "1\u202f234,50", "14:05", "15 nov. 2025"},
      {"de_CH", "-1’234’567", "1’234.50", "14:05", "15.11.2025"},
      {"hi_IN", "-12,34,567", "1,234.50", "2:05 pm", "15 नव॰ 2025"},
      {"ar_EG", "\u061c-١٬٢٣٤٬٥٦٧", "١٬٢٣٤٫٥٠", "٢:٠٥ م", "١٥\u200f/١١\u200f/٢٠٢٥"},
  };
  for (const LocaleCase& test : cases) {
    const LocaleFormat locale = format(test.locale);
    EXPECT_EQ(locale.integer(-1'234'567), test.integer) << test.locale;
    EXPECT_EQ(locale.fixed(1234.5, 2), test.fixed) << test.locale;
    EXPECT_EQ(locale.shortTime(afternoon), test.shortTime) << test.locale;
    EXPECT_EQ(locale.mediumDateUtc(afternoon), test.mediumDate) << test.locale;
  }
}

TEST(LocaleFormatTest, UnderstandsTheNamesOfTheEnvironment) {
  struct Case {
    std::string name;
    std::string integer;
  };
  const std::vector<Case> cases{
      {"", "12,345"},
      {"C", "12,345"},
      {"C.UTF-8", "12,345"},
      {"POSIX", "12,345"},
      {"en_US.UTF-8", "12,345"},
      {"de_DE.UTF-8", "12.345"},
      {"de_DE@euro", "12.345"},
      {"de_DE.UTF-8@euro", "12.345"},
      {"de_AT.ISO-8859-1", "12\u00a0345"},
      {"sr_RS.UTF-8@latin", "12.345"},
      {"de", "12.345"},
      {".UTF-8", "12,345"},
      {"@euro", "12,345"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(format(test.name).integer(12345), test.integer) << test.name;
  }
  EXPECT_EQ(format("sr_RS@latin").mediumDateUtc(afternoon), "15. 11. 2025.");
  EXPECT_FALSE(format("no such locale; 100% not").integer(1).empty());
}

TEST(LocaleFormatTest, KeepsNumbersAndDatesApart) {
  const LocaleFormat mixed({.numbers = "de_DE", .dates = "en_US", .timeZone = "UTC"});
  EXPECT_EQ(mixed.integer(12345), "12.345");
  EXPECT_EQ(mixed.mediumDateUtc(afternoon), "Nov 15, 2025");
}

TEST(LocaleFormatTest, RoundsHalvesAwayFromZero) {
  struct Case {
    double value;
    int digits;
    std::string text;
  };
  const std::vector<Case> cases{
      {0.5, 0, "1"},
      {1.5, 0, "2"},
      {2.5, 0, "3"},
      {-2.5, 0, "-3"},
      {0.125, 2, "0.13"},
      {-0.125, 2, "-0.13"},
      {84123.4, 0, "84,123"},
      {0.5, 3, "0.500"},
      {999.9999, 2, "1,000.00"},
      {1e15, 2, "1,000,000,000,000,000.00"},
      {0, 2, "0.00"},
      {1234.5, -1, "1,235"},
  };
  const LocaleFormat english = format("en_US");
  for (const Case& test : cases) {
    EXPECT_EQ(english.fixed(test.value, test.digits), test.text);
  }
}

TEST(LocaleFormatTest, SurvivesTheExtremes) {
  const LocaleFormat english = format("en_US");
  EXPECT_EQ(english.integer(std::numeric_limits<std::int64_t>::min()),
            "-9,223,372,036,854,775,808");
  EXPECT_EQ(english.fixed(std::numeric_limits<double>::infinity(), 2), "∞");
  EXPECT_EQ(english.fixed(-std::numeric_limits<double>::infinity(), 2), "-∞");
  EXPECT_EQ(english.fixed(std::numeric_limits<double>::quiet_NaN(), 2), "NaN");
  EXPECT_FALSE(english.fixed(std::numeric_limits<double>::max(), 400).empty());
}

// A pool's timestamps may be any 64-bit number; the calendars of other locales meet them, too.
TEST(LocaleFormatTest, HasATextForEveryMoment) {
  for (const char* const name : {"en_US", "ar_SA", "fa_IR", "th_TH"}) {
    const LocaleFormat locale = format(name, "America/New_York");
    for (const sys_seconds time : {sys_seconds::min(), sys_seconds(-1s), sys_seconds::max()}) {
      EXPECT_FALSE(locale.mediumDateUtc(time).empty()) << name;
      EXPECT_FALSE(locale.mediumDateShortTime(time).empty()) << name;
    }
  }
  EXPECT_EQ(format("en_US").mediumDateUtc(sys_seconds(-1s)), "Dec 31, 1969");
}

TEST(LocaleFormatTest, ShowsTimesInTheUsersZoneAndDaysInUtc) {
  const LocaleFormat berlin = format("de_DE", "Europe/Berlin");
  EXPECT_EQ(berlin.shortTime(afternoon), "15:05");
  EXPECT_EQ(berlin.mediumDateShortTime(afternoon), "15.11.2025, 15:05");
  const sys_seconds late = sys_days{2025y / November / 15} + 23h + 59min;
  EXPECT_EQ(berlin.mediumDateUtc(late), "15.11.2025");
  EXPECT_EQ(berlin.mediumDateShortTime(late), "16.11.2025, 00:59");
  EXPECT_EQ(format("en_US", "America/New_York").mediumDateShortTime(afternoon),
            "Nov 15, 2025, 9:05\u202f"
            "AM");
}

TEST(LocaleFormatTest, CountsUtcDaysByTheGregorianCalendarEverywhere) {
  EXPECT_EQ(format("th_TH").mediumDateUtc(afternoon), "15 พ.ย. 2025");
  EXPECT_TRUE(format("fa_IR").mediumDateUtc(afternoon).contains("۲۰۲۵"));
}

class EnvironmentTest : public ::testing::Test {
 protected:
  EnvironmentTest() {
    for (const char* const name : {"LC_ALL", "LC_NUMERIC", "LC_TIME", "LANG"}) {
      unsetenv(name);
    }
  }
  static void set(const char* name, const char* value) { setenv(name, value, 1); }
};

TEST_F(EnvironmentTest, GoesFromTheStrongestVariableToTheWeakestPastEmptyOnes) {
  EXPECT_EQ(LocaleNames::fromEnvironment().numbers, "");
  set("LANG", "fr_FR.UTF-8");
  EXPECT_EQ(LocaleNames::fromEnvironment().numbers, "fr_FR.UTF-8");
  EXPECT_EQ(LocaleNames::fromEnvironment().dates, "fr_FR.UTF-8");
  set("LC_NUMERIC", "de_DE");
  set("LC_TIME", "");
  EXPECT_EQ(LocaleNames::fromEnvironment().numbers, "de_DE");
  EXPECT_EQ(LocaleNames::fromEnvironment().dates, "fr_FR.UTF-8");
  set("LC_TIME", "hi_IN");
  EXPECT_EQ(LocaleNames::fromEnvironment().dates, "hi_IN");
  set("LC_ALL", "");
  EXPECT_EQ(LocaleNames::fromEnvironment().dates, "hi_IN");
  set("LC_ALL", "en_US");
  EXPECT_EQ(LocaleNames::fromEnvironment().numbers, "en_US");
  EXPECT_EQ(LocaleNames::fromEnvironment().dates, "en_US");
}

}  // namespace
}  // namespace orvane::test
