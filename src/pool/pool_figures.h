#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

namespace orvane {

/// Arithmetic that stops at the ends of the signed 64-bit range.

/// `value` without its fraction; it is not NaN.
[[nodiscard]] inline std::int64_t saturatedToInt64(double value) {
  using Range = std::numeric_limits<std::int64_t>;
  // The upper end is no double; its successor is.
  constexpr double beyondMaximum = 0x1p63;
  if (value >= beyondMaximum) { return Range::max(); }
  if (value <= -beyondMaximum) { return Range::min(); }
  return static_cast<std::int64_t>(value);
}

[[nodiscard]] inline std::int64_t saturatingSum(std::int64_t a, std::int64_t b) {
  using Range = std::numeric_limits<std::int64_t>;
  std::int64_t sum = 0;
  if (!__builtin_add_overflow(a, b, &sum)) { return sum; }
  return b < 0 ? Range::min() : Range::max();
}

/// How the pool writes its figures.

inline constexpr std::int64_t satsPerBTC = 100'000'000;

/// Hashes per second in one `unit`, for example 1e9 for "Gh/s"; up to petahashes, with letters in
/// either case, and with or without the slash. White space around the unit does not count. Any
/// other text is factor 1: the number stays as it is.
[[nodiscard]] double hashRateUnitFactor(std::string_view unit);

/// The amount of a decimal text in BTC ("0.00012345"), in satoshis; 0 when the text is not a number
/// as a whole. A fraction of a satoshi is rounded to the nearest, halves away from zero; amounts
/// beyond the 64-bit range become its ends.
[[nodiscard]] std::int64_t satsFromBTCText(std::string_view text);

/// Shares from the pool's share figure, which counts in 1,024ths: to the nearest, halves away from
/// zero; figures beyond the 64-bit range become its ends.
[[nodiscard]] std::int64_t sharesFromPoolFigure(double figure);

}  // namespace orvane
