#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "prices/bitcoin_price_service.h"
#include "support/comma_locale.h"

namespace orvane::test {
namespace {

using namespace std::string_literals;

constexpr double infinity = std::numeric_limits<double>::infinity();

const std::vector<std::pair<std::string, double>> numbers{
    {"84123.45", 84123.45},
    {"97000.1", 97000.1},
    {"+1", 1},
    {"-1.5", -1.5},
    {".5", 0.5},
    {"5.", 5},
    {"1e5", 1e5},
    {"1.5E-3", 0.0015},
    {"0x10", 16},
    {"0X1.8p1", 3},
    {"inf", infinity},
    {"-Infinity", -infinity},
    {"1e400", infinity},
    {"-1e400", -infinity},
    {"1e-400", 0},
    {"007", 7},
};

TEST(PriceTextTest, ReadsWhatTheCLibraryReads) {
  for (const auto& [text, value] : numbers) {
    EXPECT_EQ(parsePriceText(text), value) << text;
  }
  EXPECT_TRUE(std::isnan(parsePriceText("nan").value()));
  EXPECT_TRUE(std::isnan(parsePriceText("NAN(12)").value()));
}

TEST(PriceTextTest, RefusesWhatIsNoNumberAsAWhole) {
  for (const std::string& text :
       {""s,      " 1"s,    "\t1"s,    "\n1"s,  "\v1"s,       "\f1"s,      "\r1"s,
        "\0001"s, "1\0"s,   "1\0002"s, "1 "s,   "97,000.10"s, "97000,10"s, "1e"s,
        "0x"s,    "0xg"s,   "+"s,      "-"s,    "."s,         "+-1"s,      "$1"s,
        "1.2.3"s, "1_000"s, "abc"s,    "infi"s, "nan("s,      "\u00A01"s,  "\0"s}) {
    EXPECT_EQ(parsePriceText(text), std::nullopt) << testing::PrintToString(text);
  }
}

TEST(PriceTextTest, IgnoresTheUsersLocale) {
  const CommaLocale locale;
  ASSERT_TRUE(locale.isSet());
  EXPECT_EQ(std::atof("1,5"), 1.5);
  EXPECT_EQ(parsePriceText("1.5"), 1.5);
  EXPECT_EQ(parsePriceText("1,5"), std::nullopt);
}

}  // namespace
}  // namespace orvane::test
