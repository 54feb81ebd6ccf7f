#include "platform/tray/drawing/short_figure.h"
#include <array>
#include <cstdint>
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
}  // namespace

QString shortFigure(const QString& text) {
  const auto first = text.section(u'|', 0, 0);
  const auto sign = isNegative(first) ? QStringLiteral("-") : QString();
  if (text.endsWith(QStringLiteral(" sats"))) { return sign + shortWhole(digitsOf(first)); }
  if (text.endsWith(QStringLiteral(" BTC"))) { return sign + shortBitcoin(digitsOf(first)); }
  return text.section(u' ', 0, 0).left(longestShortFigure);
}
}  // namespace orvane
