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
  const std::vector<std::pair<std::string_view, double>> cases{
      {"h/s", 1},
      {"hs", 1},
      {"kh/s", 1e3},
      {"khs", 1e3},
      {"Mh/s", 1e6},
      {"MHS", 1e6},
      {"Gh/s", 1e9},
      {"ghs", 1e9},
      {"TH/s", 1e12},
      {"ths", 1e12},
      {"Ph/s", 1e15},
      {"PHS", 1e15},
      {" GH/s ", 1e9},
      {"\tTh/s\r\n", 1e12},
      {"\u00A0Th/s\u2028", 1e12},
      {"EH/s", 1},
      {"", 1},
      {" ", 1},
      {"Gh / s", 1},
      {"Gh/sec", 1},
      {"G", 1},
      {"\u212Ah/s", 1},  // the Kelvin sign is no ASCII letter
  };
  for (const auto& [unit, factor] : cases) {
    EXPECT_EQ(hashRateUnitFactor(unit), factor) << unit;
  }
}

TEST(PoolFiguresTest, ReadsAmountsWithoutBinaryRounding) {
  const std::vector<std::pair<std::string, std::int64_t>> cases{
      {"0.00012345", 12'345},
      {"1", 100'000'000},
      {"0.00000001", 1},
      {"-0.5", -50'000'000},
      {"20999999.97690000", 2'099'999'997'690'000},
      {"90071992.54740993", 9'007'199'254'740'993},
      {"1e-8", 1},
      {"", 0},
      {"abc", 0},
      {"1,5", 0},
      {"0.1 BTC", 0},
      {" 1", 0},
      {"nan", 0},
      {"inf", 0},
      {"0x10", 0},
      {"0.000000005", 1},
      {"0.000000004", 0},
      {"-0.000000005", -1},
      {"92233720368.54775807", largest},
      {"92233720368.54775808", largest},
      {"-92233720368.54775808", smallest},
      {"1e1000", largest},
      {"-1e1000", smallest},
      {"1e1001", 0},
  };
  for (const auto& [text, sats] : cases) {
    EXPECT_EQ(satsFromBTCText(text), sats) << text;
  }
}

TEST(PoolFiguresTest, RoundsSharesHalvesAwayFromZeroAndSaturates) {
  const std::vector<std::pair<double, std::int64_t>> cases{
      {1536, 2},
      {512, 1},
      {511, 0},
      {511.9, 0},
      {1'024'000, 1000},
      {-512, -1},
      {-511, 0},
      {2560, 3},
      {1e300, largest},
      {-1e300, smallest},
      {0x1p73, largest},
      {-0x1p73, smallest},
      {0x1p72, std::int64_t{1} << 62U},
  };
  for (const auto& [figure, shares] : cases) {
    EXPECT_EQ(sharesFromPoolFigure(figure), shares) << figure;
  }
}

}  // namespace
}  // namespace orvane::test
