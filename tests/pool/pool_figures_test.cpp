#include "pool/pool_figures.h"

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

TEST(PoolFiguresTest, ScalesByKnownUnitsOnly) {
  const std::vector<std::pair<double, std::vector<std::string>>> cases{
      {1, {"h/s", "hs", "EH/s", "", " ", "Gh / s", "Gh/sec", "G"}},
      {1, {"\u212Ah/s"}},  // the Kelvin sign is no ASCII letter
      {1e3, {"kh/s", "khs"}},
      {1e6, {"Mh/s", "MHS"}},
      {1e9, {"Gh/s", "ghs", " GH/s "}},
      {1e12, {"TH/s", "ths", "\tTh/s\r\n", "\u00A0Th/s\u2028"}},
      {1e15, {"Ph/s", "PHS"}},
  };
  for (const auto& [factor, units] : cases) {
    for (const std::string& unit : units) {
      EXPECT_EQ(hashRateUnitFactor(unit), factor) << unit;
    }
  }
}

TEST(PoolFiguresTest, ReadsAmountsWithoutBinaryRounding) {
  const std::vector<std::pair<std::int64_t, std::vector<std::string>>> cases{
      {12'345, {"0.00012345"}},
      {100'000'000, {"1"}},
      {1, {"0.00000001", "1e-8", "0.000000005"}},
      {-1, {"-0.000000005"}},
      {-50'000'000, {"-0.5"}},
      {2'099'999'997'690'000, {"20999999.97690000"}},
      {9'007'199'254'740'993, {"90071992.54740993"}},
      {0, {"", "abc", "1,5", "0.1 BTC", " 1", "nan", "inf", "0x10", "0.000000004", "1e1001"}},
      {largest, {"92233720368.54775807", "92233720368.54775808", "1e1000"}},
      {smallest, {"-92233720368.54775808", "-1e1000"}},
  };
  for (const auto& [sats, texts] : cases) {
    for (const std::string& text : texts) {
      EXPECT_EQ(satsFromBTCText(text), sats) << text;
    }
  }
}

TEST(PoolFiguresTest, RoundsSharesHalvesAwayFromZeroAndSaturates) {
  const std::vector<std::pair<double, std::int64_t>> cases{
      {1536, 2},         {512, 1},
      {511.9, 0},        {-512, -1},
      {-511, 0},         {2560, 3},
      {1e300, largest},  {-0x1p73, smallest},
      {0x1p73, largest}, {0x1p72, std::int64_t{1} << 62U},
  };
  for (const auto& [figure, shares] : cases) {
    EXPECT_EQ(sharesFromPoolFigure(figure), shares) << figure;
  }
}

}  // namespace
}  // namespace orvane::test
