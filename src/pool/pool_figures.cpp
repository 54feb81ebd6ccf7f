#include "pool/pool_figures.h"

#include <array>
#include <cmath>
#include <optional>
#include <string>

#include "platform/decimal/amounts.h"
#include "platform/decimal/decimal.h"
#include "platform/text/unicode.h"

namespace orvane {

namespace {

struct HashRateUnit {
  std::string_view name;
  std::string_view shortName;
  double factor;
};

constexpr std::array hashRateUnits{
    HashRateUnit{.name = "h/s", .shortName = "hs", .factor = 1},
    HashRateUnit{.name = "kh/s", .shortName = "khs", .factor = 1e3},
    HashRateUnit{.name = "mh/s", .shortName = "mhs", .factor = 1e6},
    HashRateUnit{.name = "gh/s", .shortName = "ghs", .factor = 1e9},
    HashRateUnit{.name = "th/s", .shortName = "ths", .factor = 1e12},
    HashRateUnit{.name = "ph/s", .shortName = "phs", .factor = 1e15},
};

constexpr double sharesPerFigure = 0.0009765625;

}  // namespace

double hashRateUnitFactor(std::string_view unit) {
  const std::string name = asciiLowercased(trimmed(unit));
  for (const HashRateUnit& known : hashRateUnits) {
    if (name == known.name || name == known.shortName) { return known.factor; }
  }
  return 1;
}

std::int64_t satsFromBTCText(std::string_view text) {
  const std::optional<Decimal> bitcoins = Decimal::parse(text);
  return bitcoins ? (*bitcoins * satsPerBTC).toInt64() : 0;
}

std::int64_t sharesFromPoolFigure(double figure) {
  return saturatedToInt64(std::round(figure * sharesPerFigure));
}

}  // namespace orvane
