#include "platform/tray/drawing/short_figure.h"
#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <vector>
#include "platform/decimal/decimal.h"

namespace orvane {
namespace {
constexpr int longestShortFigure = 5;

struct Magnitude {
  std::uint64_t factor;
  char16_t letter;
};
constexpr std::array<Magnitude, 5> magnitudes{{{1'000'000'000'000'000, u'P'},
                                               {1'000'000'000'000, u'T'},
                                               {1'000'000'000, u'G'},
                                               {1'000'000, u'M'},
                                               {1'000, u'k'}}};

/// All digits of a grouped number in any script; amounts have at most 19.
std::uint64_t digitsOf(QStringView text) {
  std::uint64_t number = 0;
  for (const auto character : text) {
    const int digit = character.digitValue();
    if (digit >= 0) { number = number * 10 + static_cast<std::uint64_t>(digit); }
  }
  return number;
}

QString withOneDecimal(std::uint64_t tenths) {
  return QStringLiteral("%1.%2").arg(tenths / 10).arg(tenths % 10);
}

QString padded(std::uint64_t number, int digits) {
  return QStringLiteral("%1").arg(number, digits, 10, QLatin1Char('0'));
}

QString shortWhole(std::uint64_t number) {
  if (number < 10'000) { return QString::number(number); }
  for (const auto& [factor, letter] : magnitudes) {
    if (number < factor) { continue; }
    const bool isShort = number < 10 * factor;
    return (isShort ? withOneDecimal(number / (factor / 10)) : QString::number(number / factor)) +
           QChar(letter);
  }
  return {};
}

/// Three digits of an amount in bitcoin, and below a thousandth of one in millionths (µ).
QString shortBitcoin(std::uint64_t sats) {
  const auto whole = sats / satsPerBTC;
  const auto fraction = sats % satsPerBTC;
  if (whole >= 100) { return shortWhole(whole); }
  if (whole >= 10) { return withOneDecimal(sats / (satsPerBTC / 10)); }
  if (whole >= 1) {
    return QStringLiteral("%1.%2").arg(whole).arg(padded(fraction / 1'000'000, 2));
  }
  if (fraction >= 100'000) { return u'.' + padded(fraction / 100'000, 3); }
  if (fraction >= 1'000) { return QString::number(fraction / 100) + QChar(u'µ'); }
  if (fraction >= 100) { return withOneDecimal(fraction / 10) + QChar(u'µ'); }
  if (fraction > 0) { return u'.' + padded(fraction, 2) + QChar(u'µ'); }
  return QStringLiteral("0");
}

bool isNegative(QStringView figure) {
  return figure.contains(u'-') || figure.contains(QChar(0x2212));
}

constexpr int characterHeight = 5;
constexpr int characterGap = 1;

/// Its rows from the top, one octal digit each: the three bits of a digit are the row's pixels.
struct Character {
  char16_t name;
  int width;
  int rows;
};
constexpr std::array<Character, 18> characters{{
    {u'0', 3, 075557},
    {u'1', 3, 026227},
    {u'2', 3, 071747},
    {u'3', 3, 071717},
    {u'4', 3, 055711},
    {u'5', 3, 074717},
    {u'6', 3, 074757},
    {u'7', 3, 071122},
    {u'8', 3, 075757},
    {u'9', 3, 075717},
    {u'k', 3, 045655},
    {u'M', 3, 057755},
    {u'G', 3, 074557},
    {u'T', 3, 072222},
    {u'P', 3, 075744},
    {u'µ', 3, 005574},
    {u'-', 2, 000300},
    {u'.', 1, 000001},
}};

void draw(QImage& image, int left, const Character& character, QRgb color) {
  for (int row = 0; row < characterHeight; ++row) {
    const int bits = character.rows >> 3 * (characterHeight - 1 - row);
    for (int column = 0; column < character.width; ++column) {
      if ((bits >> (character.width - 1 - column) & 1) != 0) {
        image.setPixel(left + column, row, color);
      }
    }
  }
}
}  // namespace

QString shortFigure(const QString& text) {
  const auto first = text.section(u'|', 0, 0);
  const auto sign = isNegative(first) ? QStringLiteral("-") : QString();
  if (text.endsWith(QStringLiteral(" sats"))) { return sign + shortWhole(digitsOf(first)); }
  if (text.endsWith(QStringLiteral(" BTC"))) { return sign + shortBitcoin(digitsOf(first)); }
  return text.section(u' ', 0, 0).left(longestShortFigure);
}

QImage pixelFigure(const QString& figure, const QColor& color) {
  std::vector<Character> found;
  for (const auto letter : figure) {
    const auto* const known = std::ranges::find(characters, letter.unicode(), &Character::name);
    if (known == characters.end()) { return {}; }
    found.push_back(*known);
  }
  const int width = std::accumulate(
      found.begin(), found.end(), -characterGap,
      [](int sum, const Character& character) { return sum + character.width + characterGap; });
  if (width <= 0) { return {}; }

  QImage image(width, characterHeight, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  int left = 0;
  for (const auto& character : found) {
    draw(image, left, character, color.rgba());
    left += character.width + characterGap;
  }
  return image;
}
}  // namespace orvane
