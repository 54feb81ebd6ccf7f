#include "platform/decimal/decimal.h"

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/comma_locale.h"

namespace orvane::test {
namespace {

using namespace std::string_literals;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

Decimal decimal(std::string_view text) {
  const std::optional<Decimal> value = Decimal::parse(text);
  EXPECT_TRUE(value) << text;
  return value.value_or(Decimal());
}

TEST(DecimalTest, RefusesEverythingOutsideItsGrammar) {
  const std::vector<const char*> texts{
      "",    " 1",    "1 ",    "abc",   "1,5",    "1_0",     "0x10",
      "nan", "-inf",  ".",     "-",     "+-1",    "1e",      "1e+",
      ".e5", "1e5.0", "1.2.3", "12abc", "1e1001", "1e-1001", "1e99999999999999999999",
      "١"};
  for (const auto* const text : texts) {
    EXPECT_FALSE(Decimal::parse(text)) << text;
  }
  EXPECT_FALSE(Decimal::parse("1\0"s));
  EXPECT_FALSE(Decimal::parse(std::string(1001, '1')));
}

TEST(DecimalTest, ReadsEveryFormOfItsGrammar) {
  struct Case {
    std::string_view text;
    double value;
  };
  const std::vector<Case> cases{
      {.text = "-0", .value = 0},         {.text = "+1", .value = 1},
      {.text = "007", .value = 7},        {.text = ".5", .value = 0.5},
      {.text = "5.", .value = 5},         {.text = "-.5", .value = -0.5},
      {.text = "+1.5E+3", .value = 1500}, {.text = "25e-0000000001", .value = 2.5},
      {.text = "1e300", .value = 1e300},  {.text = "0.1", .value = 0.1}};
  for (const Case& test : cases) {
    EXPECT_EQ(decimal(test.text).toDouble(), test.value) << test.text;
  }
  EXPECT_EQ(decimal(std::string(1000, '0')), Decimal());
}

TEST(DecimalTest, CalculatesAndOrdersWithoutBinaryRounding) {
  EXPECT_EQ(decimal("0.1") + decimal("0.2"), decimal("0.3"));
  EXPECT_EQ(decimal("20999999.97690000") * 100'000'000, 2'099'999'997'690'000);
  EXPECT_LT(decimal("-2"), decimal("-1"));
  EXPECT_LT(decimal("0.1"), decimal("0.10000000000000000000001"));
  Decimal sum(1);
  const Decimal one(sum);
  sum = sum + one;
  EXPECT_EQ(one, 1) << "a copy is independent";
}

TEST(DecimalTest, RoundsHalvesAwayFromZeroAndSaturates) {
  struct Case {
    std::string_view text;
    std::int64_t value;
  };
  const std::vector<Case> cases{
      {.text = "0.5", .value = 1},
      {.text = "0.49999999999999999999", .value = 0},
      {.text = "2.5", .value = 3},
      {.text = "-12345.5", .value = -12346},
      {.text = "9223372036854775806.4", .value = largest - 1},
      {.text = "9223372036854775808", .value = largest},
      {.text = "-9223372036854775807.4", .value = smallest + 1},
      {.text = "-9223372036854775809", .value = smallest},
      {.text = "1e1000", .value = largest},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(decimal(test.text).toInt64(), test.value) << test.text;
  }
  EXPECT_EQ(Decimal(smallest).toInt64(), smallest);
  EXPECT_EQ(Decimal(largest).toInt64(), largest);
}

TEST(DecimalTest, IgnoresTheUsersLocale) {
  const CommaLocale locale;
  ASSERT_TRUE(locale.isSet());
  EXPECT_EQ(Decimal::parse("1,5"), std::nullopt);
  EXPECT_EQ(decimal("1.5").toDouble(), 1.5);
  EXPECT_EQ((decimal("0.00012345") * 100'000'000).toInt64(), 12345);
}

TEST(DecimalTest, CopiesAreIndependent) {
  const Decimal one(1);
  Decimal copy(one);
  copy = copy + one;
  EXPECT_EQ(one, 1);
  Decimal moved(std::move(copy));
  EXPECT_EQ(moved, 2);
  moved = one;
  EXPECT_EQ(moved, 1);
}

}  // namespace
}  // namespace orvane::test
