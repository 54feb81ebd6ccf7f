#include "shell/views/theme.h"
#include <QFontDatabase>
#include <QFontInfo>
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

/// Where Qt cannot switch on a font's digits of equal width, `equal_digits.h` helps in columns;
/// what stands alone is left in the font's own digits rather than in another typeface.
QFont withDigitsOfEqualWidth(QFont font) {
  font.setKerning(false);
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0)
  font.setFeature(QFont::Tag("tnum"), 1);
#endif
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
