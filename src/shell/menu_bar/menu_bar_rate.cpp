#include "shell/menu_bar/menu_bar_rate.h"

#include <array>

#include <fmt/format.h>

namespace orvane {
namespace {

constexpr double largestRate = 1e14;

struct RateUnit {
  double threshold;
  const char* name;
};

constexpr std::array rateUnits{RateUnit{1e12, "TH"}, RateUnit{1e9, "GH"}, RateUnit{1e6, "MH"},
                               RateUnit{1e3, "kH"}};

int fractionDigits(double scaled) {
  if (scaled >= 100) { return 0; }
  return scaled >= 10 ? 1 : 2;
}

}  // namespace

std::string menuBarRateText(double hashesPerSecond) {
  // Written so that a rate that is not a number is refused as well.
  if (!(hashesPerSecond > 0 && hashesPerSecond <= largestRate)) { return {}; }
  for (const auto& unit : rateUnits) {
    if (hashesPerSecond < unit.threshold) { continue; }
    const double scaled = hashesPerSecond / unit.threshold;
    return fmt::format("{:.{}f} {}", scaled, fractionDigits(scaled), unit.name);
  }
  return fmt::format("{:.0f} H", hashesPerSecond);
}

}  // namespace orvane
