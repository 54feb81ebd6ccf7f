#include "shell/menu_bar/status_button.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>

namespace orvane {
namespace {
constexpr double symbolPointSize = 13;
constexpr double textPointSize = 9;
constexpr double gapBeforeText = 3;
constexpr double leastHeight = 18;
constexpr double lengthBesideImage = 8;

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

std::optional<StatusImage> symbolImage(const StatusBar& statusBar,
                                       const StatusButtonContent& content) {
  for (const auto& name : content.symbolNames) {
    const auto size = statusBar.symbolSize(name, symbolPointSize);
    if (!size) { continue; }
    return StatusImage{.symbolName = name,
                       .symbolPointSize = symbolPointSize,
                       .symbolColor = content.color,
                       .text = {},
                       .size = *size,
                       .accessibilityDescription = content.symbolDescription};
  }
  return std::nullopt;
}

void placeText(StatusImage& image, const StatusBar& statusBar, const StatusButtonContent& content) {
  const auto text = statusBar.textSize(content.text, textPointSize);
  image.text = content.text;
  image.textPointSize = textPointSize;
  image.textColor = StatusColor::systemGreen;
  image.size = {.width = std::ceil(text.width) + image.size.width + gapBeforeText,
                .height = std::max({image.size.height, text.height, leastHeight})};
  image.accessibilityDescription += " " + content.text + content.spokenSuffix;
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

StatusButton composeStatusButton(const StatusBar& statusBar, const StatusButtonContent& content) {
  StatusButton button{.image = symbolImage(statusBar, content)};
  if (button.image && !content.text.empty()) {
    placeText(*button.image, statusBar, content);
    button.length = button.image->size.width + lengthBesideImage;
  }
  return button;
}
}  // namespace orvane
