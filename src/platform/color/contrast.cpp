#include "platform/color/contrast.h"
#include <algorithm>
#include <array>
#include <cmath>

namespace orvane {
namespace {
constexpr std::size_t levels = 256;

/// The share of its light that a channel has at each of its levels; thousands are looked up as a
/// window comes up.
const std::array<double, levels>& lightOfLevels() {
  static const std::array<double, levels> light = [] {
    std::array<double, levels> made{};
    for (std::size_t level = 0; level < levels; ++level) {
      const double share = static_cast<double>(level) / (levels - 1);
      made[level] = share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    }
    return made;
  }();
  return light;
}

double luminance(const QColor& color) {
  const auto lightAt = [&light = lightOfLevels()](int level) {
    return light[static_cast<std::size_t>(level)];
  };
  return 0.2126 * lightAt(color.red()) + 0.7152 * lightAt(color.green()) +
         0.0722 * lightAt(color.blue());
}
}  // namespace

double contrast(const QColor& a, const QColor& b) {
  const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor between(const QColor& from, const QColor& to, double share) {
  const auto mixed = [share](int a, int b) {
    return a + static_cast<int>(std::lround((b - a) * share));
  };
  return {mixed(from.red(), to.red()), mixed(from.green(), to.green()),
          mixed(from.blue(), to.blue())};
}

QColor withContrast(const QColor& tone, const QColor& end, std::initializer_list<QColor> grounds,
                    double ratio) {
  constexpr int steps = 64;
  for (int step = 0; step < steps; ++step) {
    const auto color = between(tone, end, static_cast<double>(step) / steps);
    const bool suffices = std::ranges::all_of(
        grounds, [&](const QColor& ground) { return contrast(color, ground) >= ratio; });
    if (suffices) { return color; }
  }
  return end;
}

QColor farthestFrom(const QColor& ground) {
  return contrast(ground, Qt::black) > contrast(ground, Qt::white) ? Qt::black : Qt::white;
}

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

QPalette withReadableDisabledText(QPalette palette) {
  // What styles paint menus with; the third is Fusion's.
  const auto base = palette.color(QPalette::Active, QPalette::Base);
  const std::initializer_list<QColor> grounds{palette.color(QPalette::Active, QPalette::Window),
                                              base, base.lighter(108)};
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(
        QPalette::Disabled, role,
        withContrast(palette.color(QPalette::Disabled, role), palette.color(QPalette::Active, role),
                     grounds, readableContrast));
  }
  return palette;
}
}  // namespace orvane
