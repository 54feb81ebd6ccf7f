#include "shell/views/theme.h"
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <cmath>

namespace orvane::theme {
namespace {
enum class Family { interface, figures, monospaced };

struct StyleDescription {
  double scale;  ///< of the interface font's size
  QFont::Weight weight;
  Family family;
};

/// In the order of `TextStyle`.
constexpr std::array<StyleDescription, 15> styles{{
    {0.85, QFont::Normal, Family::interface},
    {0.85, QFont::DemiBold, Family::interface},
    {0.85, QFont::Bold, Family::interface},
    {0.93, QFont::Normal, Family::interface},
    {0.93, QFont::Normal, Family::figures},
    {0.93, QFont::Normal, Family::monospaced},
    {1.0, QFont::Normal, Family::interface},
    {1.0, QFont::Normal, Family::monospaced},
    {1.0, QFont::Bold, Family::figures},
    {1.0, QFont::DemiBold, Family::interface},
    {1.3, QFont::Medium, Family::figures},
    {1.3, QFont::Bold, Family::interface},
    {1.5, QFont::Medium, Family::figures},
    {1.7, QFont::Bold, Family::interface},
    {0, QFont::DemiBold, Family::figures},  // its size is the design's own
}};
static_assert(styles.size() == static_cast<std::size_t>(TextStyle::largeFigure) + 1);

constexpr int largeFigureSize = 34;
constexpr int smallestInterfaceSize = 12;
constexpr int designInterfaceSize = 13;

bool hasDigitsOfEqualWidth(const QFont& font) {
  const QFontMetricsF metrics(font);
  const auto width = metrics.horizontalAdvance(u'0');
  return std::ranges::all_of(QStringView(u"123456789"), [&](QChar digit) {
    return std::abs(metrics.horizontalAdvance(digit) - width) < 0.01;
  });
}

/// Qt 6.4 cannot switch on a font's tabular digits, so a family that has no others is looked for
/// when the interface font's digits differ in width: figures must not jump when they change.
QFont withDigitsOfEqualWidth(QFont font) {
  font.setKerning(false);
  if (hasDigitsOfEqualWidth(font)) { return font; }
  for (const auto* family : {"Noto Sans", "Roboto", "Liberation Sans", "DejaVu Sans"}) {
    auto candidate = font;
    candidate.setFamilies({QString::fromLatin1(family)});
    if (QFontInfo(candidate).family() == QLatin1String(family) &&
        hasDigitsOfEqualWidth(candidate)) {
      return candidate;
    }
  }
  return font;
}

QFont baseFont(Family family) {
  auto font = QGuiApplication::font();
  switch (family) {
    case Family::interface:
    case Family::figures:
      return font;
    case Family::monospaced:
      font.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
      font.setStyleHint(QFont::Monospace);
      return font;
  }
  return font;
}

int interfacePixelSize() {
  return std::max(smallestInterfaceSize, QFontInfo(QGuiApplication::font()).pixelSize());
}
}  // namespace

int grown(int length) {
  return std::max(length, length * interfacePixelSize() / designInterfaceSize);
}

QFont textFont(TextStyle style) {
  const auto& description = styles.at(static_cast<std::size_t>(style));
  auto font = baseFont(description.family);
  const int base = interfacePixelSize();
  font.setPixelSize(style == TextStyle::largeFigure
                        ? std::max(largeFigureSize, 2 * base)
                        : static_cast<int>(std::lround(base * description.scale)));
  font.setWeight(description.weight);
  return description.family == Family::figures ? withDigitsOfEqualWidth(font) : font;
}
}  // namespace orvane::theme
