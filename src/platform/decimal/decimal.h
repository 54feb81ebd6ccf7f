#pragma once

#include <compare>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orvane {
/// A decimal number: amounts are parsed, multiplied and added without ever passing through binary
/// floating point. Holds at least 50 significant digits.
class Decimal {
 public:
  Decimal();                    ///< zero
  Decimal(std::int64_t value);  // NOLINT(google-explicit-constructor): whole numbers are decimals
  Decimal(const Decimal& other);
  Decimal(Decimal&& other) noexcept;
  Decimal& operator=(const Decimal& other);
  Decimal& operator=(Decimal&& other) noexcept;
  ~Decimal();

  /// Reads a whole text of the form [+-] digits [. digits] [e [+-] digits], with "." whatever the
  /// locale, at least one digit before the exponent, and nothing around it. Nothing for any other
  /// text, for one of more than 1,000 characters and for an exponent beyond +-1,000.
  [[nodiscard]] static std::optional<Decimal> parse(std::string_view text);

  friend Decimal operator+(Decimal a, const Decimal& b);
  friend Decimal operator*(Decimal a, const Decimal& b);
  friend bool operator==(const Decimal& a, const Decimal& b);
  friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b);

  [[nodiscard]] double toDouble() const;
  /// The nearest whole number, halves away from zero; saturates at the ends of the range.
  [[nodiscard]] std::int64_t toInt64() const;
  /// Its digits, "." and no exponent, as few as there are and not more than 50 behind the point.
  [[nodiscard]] std::string toText() const;

 private:
  struct Value;
  std::unique_ptr<Value> value_;
};

/// Amounts of satoshis, shares and other counts are 64-bit integers with sign.
inline constexpr std::int64_t satsPerBTC = 100'000'000;

// Arithmetic that stops at the ends of that range: what comes from outside may be any number.

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
