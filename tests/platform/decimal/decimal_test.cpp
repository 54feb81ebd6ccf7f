#include "platform/decimal/decimal.h"
#include <gtest/gtest.h>
#include "support/comma_locale.h"

namespace orvane::test { namespace {

using Range = std::numeric_limits<std::int64_t>;

Decimal decimal(std::string_view text) {
  const std::optional<Decimal> value = Decimal::parse(text);
  EXPECT_TRUE(value) << text;
  return value.value_or(Decimal());
}

TEST(DecimalTest, RefusesEverythingOutsideItsGrammarWhateverTheLocale) {
  const CommaLocale locale;
  ASSERT_TRUE(locale.isSet());
  for (const std::string& text :
       {std::string("1\0", 2), std::string(1001, '1'), std::string("1e9999999999")}) {
    EXPECT_FALSE(Decimal::parse(text)) << text;
  }
  for (const char* const text :
       {"",    " 1", "1 ",  "abc", "1,5",   "1_0",   "0x10",  "nan",    "-inf",    ".", "-",
        "+-1", "1e", "1e+", ".e5", "1e5.0", "1.2.3", "12abc", "1e1001", "1e-1001", "١"}) {
    EXPECT_FALSE(Decimal::parse(text)) << text;
  }
}

TEST(DecimalTest, ReadsEveryFormOfItsGrammarWhateverTheLocale) {
  const CommaLocale locale;
  ASSERT_TRUE(locale.isSet());
  const std::pair<std::string_view, double> cases[]{
      {"-0", 0},        {"+1", 1},        {"007", 7},   {".5", 0.5},
      {"5.", 5},        {"-.5", -0.5},    {"0.1", 0.1}, {"25e-0000000001", 2.5},
      {"1e300", 1e300}, {"+1.5E+3", 1500}};
  for (const auto& [text, value] : cases) {
    EXPECT_EQ(decimal(text).toDouble(), value) << text;
  }
  EXPECT_EQ(decimal(std::string(1000, '0')), Decimal());
}

TEST(DecimalTest, CalculatesAndOrdersWithoutBinaryRounding) {
  EXPECT_EQ(decimal("0.1") + decimal("0.2"), decimal("0.3"));
  EXPECT_EQ(decimal("20999999.97690000") * satsPerBTC, 2'099'999'997'690'000);
  EXPECT_LT(decimal("-2"), decimal("-1"));
  EXPECT_LT(decimal("0.1"), decimal("0.10000000000000000000001"));
}

TEST(DecimalTest, RoundsHalvesAwayFromZeroAndSaturates) {
  const std::pair<std::string_view, std::int64_t> cases[]{
      {"0.5", 1},
      {"0.49999999999999999999", 0},
      {"2.5", 3},
      {"-12345.5", -12346},
      {"9223372036854775806.4", Range::max() - 1},
      {"9223372036854775808", Range::max()},
      {"-9223372036854775809", Range::min()},
      {"1e1000", Range::max()}};
  for (const auto& [text, value] : cases) {
    EXPECT_EQ(decimal(text).toInt64(), value) << text;
  }
}

TEST(DecimalTest, IsWrittenWithAsManyDigitsAsItHas) {
  const std::pair<std::string_view, const char*> cases[]{
      {"0.00012345e8", "12345"},
      {"0.000000005e8", "0.5"},
      {"-0.10", "-0.1"},
      {"-0", "0"},
      {"1e-1000", "0"},
      {"20999999.97690001e8", "2099999997690001"},
      {"100", "100"},
      {"0.1e-40", "0.00000000000000000000000000000000000000001"}};
  for (const auto& [text, written] : cases) {
    EXPECT_EQ(decimal(text).toText(), written);
  }
}

}}  // namespace orvane::test
