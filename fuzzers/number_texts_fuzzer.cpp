// The texts that numbers arrive in: any bytes give a number or nothing. Amounts are compared with
// arithmetic of another kind, whole numbers of any size.

#include <charconv>
#include <limits>
#include <boost/multiprecision/cpp_int.hpp>
#include "address/explorer_documents.h"
#include "fuzzer.h"
#include "platform/text/unicode.h"
#include "pool/pool_documents.h"
#include "prices/bitcoin_price_service.h"

namespace orvane {
namespace {
using boost::multiprecision::cpp_int;

// What a decimal surely holds; beyond it digits may be rounded away.
constexpr std::size_t exactDigits = 40;
constexpr int largestExponent = 100;
constexpr std::size_t longestText = 1'000;  // a longer one is no number

bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// An amount as digits and a power of ten, when it is one that the comparison is for.
struct WrittenAmount {
  cpp_int digits = 0;
  int exponent = 0;
};

std::string_view takeDigits(std::string_view& rest) {
  std::size_t count = 0;
  while (count < rest.size() && isDigit(rest[count])) {
    ++count;
  }
  const std::string_view digits = rest.substr(0, count);
  rest.remove_prefix(count);
  return digits;
}

bool takeOneOf(std::string_view& rest, std::string_view characters) {
  const bool found = !rest.empty() && characters.contains(rest.front());
  if (found) { rest.remove_prefix(1); }
  return found;
}

std::optional<WrittenAmount> readAmount(std::string_view rest) {
  if (rest.size() > longestText) { return std::nullopt; }
  const bool isNegative = rest.starts_with('-');
  takeOneOf(rest, "+-");
  const std::string_view whole = takeDigits(rest);
  const std::string_view fraction = takeOneOf(rest, ".") ? takeDigits(rest) : std::string_view();
  const std::string digits = std::string(whole) + std::string(fraction);
  if (digits.empty() || digits.size() > exactDigits) { return std::nullopt; }
  int exponent = 0;
  if (takeOneOf(rest, "eE")) {
    if (rest.starts_with('+') && !rest.starts_with("+-")) { rest.remove_prefix(1); }
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), exponent);
    if (error != std::errc() || std::abs(exponent) > largestExponent) { return std::nullopt; }
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
  }
  if (!rest.empty()) { return std::nullopt; }
  // A leading zero would make the number an octal one.
  const std::size_t first = digits.find_first_not_of('0');
  cpp_int value(first == std::string::npos ? "0" : digits.substr(first));
  return WrittenAmount{.digits = isNegative ? cpp_int(-value) : value,
                       .exponent = exponent - static_cast<int>(fraction.size())};
}

cpp_int powerOfTen(int exponent) {
  cpp_int power = 1;
  for (; exponent > 0; --exponent) {
    power *= 10;
  }
  return power;
}

std::int64_t satsOf(const WrittenAmount& amount) {
  constexpr int satsExponent = 8;
  const int exponent = amount.exponent + satsExponent;
  cpp_int sats = amount.digits;
  if (exponent >= 0) {
    sats *= powerOfTen(exponent);
  } else {
    const cpp_int divisor = powerOfTen(-exponent);
    const cpp_int half = divisor / 2;
    sats = (sats < 0 ? cpp_int(sats - half) : cpp_int(sats + half)) / divisor;
  }
  using Range = std::numeric_limits<std::int64_t>;
  if (sats > Range::max()) { return Range::max(); }
  return sats < Range::min() ? Range::min() : sats.convert_to<std::int64_t>();
}
}  // namespace

void tryInput(std::string_view text) {
  const std::int64_t sats = satsFromBTCText(text);
  if (const auto amount = readAmount(text)) { require(sats == satsOf(*amount)); }
  require(hashRateUnitFactor(text) >= 1);
  require(trimmed(trimmed(text)) == trimmed(text));
  if (const auto height = parseTipHeight(text)) {
    require(parseTipHeight(std::to_string(*height)) == height);
  }
  (void)parsePriceText(std::string(text));
  const std::string readable = decodedLossily(text);
  require(isValidUtf8(readable) &&
          nfcNormalized(nfcNormalized(readable)) == nfcNormalized(readable));
}
}  // namespace orvane
