#pragma once

#include <cstdint>
#include <limits>

namespace orvane {

/// Amounts of satoshis, shares and other counts are 64-bit integers with sign.

inline constexpr std::int64_t satsPerBTC = 100'000'000;

/// Arithmetic that stops at the ends of that range. What comes from outside may be any number.

[[nodiscard]] inline std::int64_t saturatingSum(std::int64_t a, std::int64_t b) {
  using Range = std::numeric_limits<std::int64_t>;
  std::int64_t sum = 0;
  if (!__builtin_add_overflow(a, b, &sum)) { return sum; }
  return b < 0 ? Range::min() : Range::max();
}

[[nodiscard]] inline std::int64_t saturatingDifference(std::int64_t a, std::int64_t b) {
  using Range = std::numeric_limits<std::int64_t>;
  std::int64_t difference = 0;
  if (!__builtin_sub_overflow(a, b, &difference)) { return difference; }
  return b < 0 ? Range::max() : Range::min();
}

/// `value` without its fraction; it is not NaN.
[[nodiscard]] inline std::int64_t saturatedToInt64(double value) {
  using Range = std::numeric_limits<std::int64_t>;
  // The upper end is no double; its successor is.
  constexpr double beyondMaximum = 0x1p63;
  if (value >= beyondMaximum) { return Range::max(); }
  if (value <= -beyondMaximum) { return Range::min(); }
  return static_cast<std::int64_t>(value);
}

}  // namespace orvane
