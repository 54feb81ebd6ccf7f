#pragma once

#include <compare>
#include <cstdint>
#include <memory>
#include <optional>
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

  friend Decimal operator+(const Decimal& a, const Decimal& b);
  friend Decimal operator*(const Decimal& a, const Decimal& b);
  friend bool operator==(const Decimal& a, const Decimal& b);
  friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b);

  [[nodiscard]] double toDouble() const;
  /// The nearest whole number, halves away from zero; saturates at the ends of the range.
  [[nodiscard]] std::int64_t toInt64() const;

 private:
  struct Value;
  std::unique_ptr<Value> value_;
};

}  // namespace orvane
