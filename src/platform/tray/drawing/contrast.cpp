#include "platform/tray/drawing/contrast.h"
#include <algorithm>
#include <array>
#include <cmath>

namespace orvane {
namespace {
constexpr double readableContrast = 4.5;

double luminance(const QColor& color) {
  const auto linear = [](double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

/// `part` of 256 from one colour to the other.
QColor between(const QColor& from, const QColor& to, int part) {
  const auto mixed = [part](int a, int b) { return a + (b - a) * part / 256; };
  return {mixed(from.red(), to.red()), mixed(from.green(), to.green()),
          mixed(from.blue(), to.blue())};
}

/// What styles paint menus with; the third is Fusion's.
std::array<QColor, 3> groundsOfMenus(const QPalette& palette) {
  const auto base = palette.color(QPalette::Active, QPalette::Base);
  return {palette.color(QPalette::Active, QPalette::Window), base, base.lighter(108)};
}

QColor readable(const QColor& faint, const QColor& full, const std::array<QColor, 3>& grounds) {
  constexpr int step = 8;
  for (int part = 0; part < 256; part += step) {
    const auto color = between(faint, full, part);
    const bool isReadable = std::ranges::all_of(
        grounds, [&](const QColor& ground) { return contrast(color, ground) >= readableContrast; });
    if (isReadable) { return color; }
  }
  return full;
}
}  // namespace

double contrast(const QColor& a, const QColor& b) {
  const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

QPalette withReadableDisabledText(QPalette palette) {
  const auto grounds = groundsOfMenus(palette);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role,
                     readable(palette.color(QPalette::Disabled, role),
                              palette.color(QPalette::Active, role), grounds));
  }
  return palette;
}
}  // namespace orvane
