#include "platform/text/locale_format.h"
#include <cstdlib>
#include <limits>
#include <gtest/gtest.h>
#include "support/temporary_folder.h"

namespace orvane::test { namespace {

using namespace std::chrono;

// The zone of this machine: ICU looks once.
const int zoneIsSet = ::setenv("TZ", "America/New_York", 1);

constexpr sys_seconds afternoon = sys_days{2025y / November / 15} + 14h + 5min;

LocaleFormat format(const std::string& locale, const std::string& timeZone = "UTC") {
  return LocaleFormat({.numbers = locale, .dates = locale, .timeZone = timeZone});
}

TEST(LocaleFormatTest, FollowsTheLocale) {
  struct Case {
    std::string locale, integer, fixed, shortTime, mediumDate;
  };
  const Case cases[]{
      {"en_US", "-1,234,567", "1,234.50", "2:05\u202fPM", "Nov 15, 2025"},
      {"de_DE", "-1.234.567", "1.234,50", "14:05", "15.11.2025"},
      {"ar_EG", "\u061c-١٬٢٣٤٬٥٦٧", "١٬٢٣٤٫٥٠", "٢:٠٥ م", "١٥\u200f/١١\u200f/٢٠٢٥"},
      // Days in UTC are days of the Gregorian calendar also where another one is in use.
      {"th_TH", "-1,234,567", "1,234.50", "14:05", "15 พ.ย. 2025"}};
  for (const auto& [name, integer, fixed, shortTime, mediumDate] : cases) {
    const LocaleFormat locale = format(name);
    EXPECT_EQ(locale.integer(-1'234'567), integer) << name;
    EXPECT_EQ(locale.fixed(1234.5, 2), fixed) << name;
    EXPECT_EQ(locale.shortTime(afternoon), shortTime) << name;
    EXPECT_EQ(locale.mediumDateUtc(afternoon), mediumDate) << name;
  }
  const LocaleFormat mixed({.numbers = "de_DE", .dates = "en_US", .timeZone = "UTC"});
  EXPECT_EQ(mixed.integer(12345), "12.345");
  EXPECT_EQ(mixed.mediumDateUtc(afternoon), "Nov 15, 2025");
}

TEST(LocaleFormatTest, UnderstandsTheNamesOfTheEnvironment) {
  for (const auto* const name : {"", "C.UTF-8", "POSIX", "en_US.UTF-8", ".UTF-8", "@euro"}) {
    EXPECT_EQ(format(name).integer(12345), "12,345") << name;
  }
  for (const auto* const name : {"de", "de_DE.UTF-8", "de_DE@euro", "de_DE.UTF-8@euro"}) {
    EXPECT_EQ(format(name).integer(12345), "12.345") << name;
  }
  EXPECT_TRUE(format("uz_UZ.UTF-8@cyrillic").mediumDateUtc(afternoon).contains("ноя"));
  EXPECT_FALSE(format("no such locale; 100% not").integer(1).empty());
}

TEST(LocaleFormatTest, RoundsHalvesToEvenAndSurvivesTheExtremes) {
  using Limits = std::numeric_limits<double>;
  const std::tuple<double, int, std::string> cases[]{{0.5, 0, "0"},
                                                     {1.5, 0, "2"},
                                                     {0.125, 2, "0.12"},
                                                     {999.9999, 2, "1,000.00"},
                                                     {-Limits::infinity(), 2, "-∞"},
                                                     {Limits::quiet_NaN(), 2, "NaN"}};
  const LocaleFormat english = format("en_US");
  for (const auto& [value, digits, text] : cases) {
    EXPECT_EQ(english.fixed(value, digits), text);
  }
  EXPECT_EQ(english.integer(std::numeric_limits<std::int64_t>::min()),
            "-9,223,372,036,854,775,808");
}

// A pool's timestamps may be any 64-bit number; the calendars of other locales meet them, too.
TEST(LocaleFormatTest, HasATextForEveryMoment) {
  for (const char* const name : {"en_US", "ar_SA", "fa_IR", "th_TH"}) {
    const LocaleFormat locale = format(name, "America/New_York");
    for (const sys_seconds time : {sys_seconds::min(), sys_seconds::max()}) {
      EXPECT_FALSE(locale.mediumDateUtc(time).empty()) << name;
      EXPECT_FALSE(locale.mediumDateShortTime(time).empty()) << name;
    }
  }
  EXPECT_EQ(format("en_US").mediumDateUtc(sys_seconds(-1s)), "Dec 31, 1969");
}

TEST(LocaleFormatTest, ShowsTimesInTheUsersZoneAndDaysInUtc) {
  ASSERT_EQ(zoneIsSet, 0);
  EXPECT_EQ(format("de_DE", "").shortTime(afternoon), "09:05") << "the system's own zone";
  const LocaleFormat berlin = format("de_DE", "Europe/Berlin");
  EXPECT_EQ(berlin.shortTime(afternoon), "15:05");
  const sys_seconds late = sys_days{2025y / November / 15} + 23h + 59min;
  EXPECT_EQ(berlin.mediumDateUtc(late), "15.11.2025");
  EXPECT_EQ(berlin.mediumDateUtc(sys_days{2025y / November / 15}), "15.11.2025");
  EXPECT_EQ(berlin.mediumDateShortTime(late), "16.11.2025, 00:59");
}

TEST(LocaleFormatTest, FollowsTheSystemsZoneWhereverItGoes) {
  ::unsetenv("TZ");
  const TemporaryFolder folder;
  const std::filesystem::path link = folder.path() / "localtime";
  const auto lead = [&link](const std::string& target) {
    std::filesystem::remove(link);
    std::filesystem::create_symlink(target, link);
  };
  lead("/usr/share/zoneinfo/Europe/Berlin");
  const LocaleFormat moving({.numbers = "de_DE", .dates = "de_DE", .systemZoneLink = link});
  EXPECT_EQ(moving.shortTime(afternoon), "15:05");
  lead("../usr/share/zoneinfo/America/New_York");
  EXPECT_EQ(moving.shortTime(afternoon), "09:05");
  lead("/usr/share/zoneinfo/No/Such");
  EXPECT_EQ(moving.mediumDateShortTime(afternoon), "15.11.2025, 09:05");
}

TEST(LocaleNamesTest, GoFromTheStrongestVariableToTheWeakestPastEmptyOnes) {
  for (const char* const name : {"LC_ALL", "LC_NUMERIC", "LC_TIME", "LANG"}) {
    ::setenv(name, "", 1);
  }
  // What each makes of the names of numbers and dates, one after the other.
  const std::tuple<const char*, const char*, std::string, std::string> cases[]{
      {"LANG", "", "", ""},
      {"LANG", "fr_FR", "fr_FR", "fr_FR"},
      {"LC_NUMERIC", "de_DE", "de_DE", "fr_FR"},
      {"LC_TIME", "hi_IN", "de_DE", "hi_IN"},
      {"LC_ALL", "en_US", "en_US", "en_US"}};
  for (const auto& [variable, value, numbers, dates] : cases) {
    ::setenv(variable, value, 1);
    EXPECT_EQ(LocaleNames::fromEnvironment().numbers, numbers) << variable;
    EXPECT_EQ(LocaleNames::fromEnvironment().dates, dates) << variable;
  }
}

}}  // namespace orvane::test
