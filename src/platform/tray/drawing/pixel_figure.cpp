#include "platform/tray/drawing/pixel_figure.h"
#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

namespace orvane {
namespace {
constexpr int height = 5;
constexpr int gap = 1;

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
  for (int row = 0; row < height; ++row) {
    const int bits = character.rows >> 3 * (height - 1 - row);
    for (int column = 0; column < character.width; ++column) {
      if ((bits >> (character.width - 1 - column) & 1) != 0) {
        image.setPixel(left + column, row, color);
      }
    }
  }
}
}  // namespace

QImage pixelFigure(const QString& figure, const QColor& color) {
  std::vector<Character> found;
  for (const auto letter : figure) {
    const auto* const known = std::ranges::find(characters, letter.unicode(), &Character::name);
    if (known == characters.end()) { return {}; }
    found.push_back(*known);
  }
  const int width = std::accumulate(
      found.begin(), found.end(), -gap,
      [](int sum, const Character& character) { return sum + character.width + gap; });
  if (width <= 0) { return {}; }

  QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  int left = 0;
  for (const auto& character : found) {
    draw(image, left, character, color.rgba());
    left += character.width + gap;
  }
  return image;
}
}  // namespace orvane
