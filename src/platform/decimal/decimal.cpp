#include "platform/decimal/decimal.h"
#include <charconv>
#include <boost/multiprecision/cpp_dec_float.hpp>

namespace orvane {
using Number = boost::multiprecision::number<boost::multiprecision::cpp_dec_float<50>,
                                             boost::multiprecision::et_off>;

struct Decimal::Value {
  Number number;
};

namespace {
constexpr std::size_t maximumTextSize = 1'000;
constexpr int maximumExponent = 1'000;
constexpr int longestFraction = 50;

std::string_view takeDigits(std::string_view& text) {
  const std::string_view digits = text.substr(0, text.find_first_not_of("0123456789"));
  text.remove_prefix(digits.size());
  return digits;
}

bool take(std::string_view& text, std::string_view oneOf) {
  if (text.empty() || !oneOf.contains(text.front())) { return false; }
  text.remove_prefix(1);
  return true;
}

/// Whether `text`, the part behind the "e", is an exponent in range.
bool isExponent(std::string_view text) {
  take(text, "+-");
  const std::string_view digits = takeDigits(text);
  int exponent = 0;
  const std::from_chars_result read =
      std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
  return !digits.empty() && text.empty() && read.ec == std::errc{} && exponent <= maximumExponent;
}

/// The text's own grammar. The library's differs between its versions and takes blanks, "nan" and
/// "1,5" in some of them.
bool isDecimalText(std::string_view text) {
  if (text.size() > maximumTextSize) { return false; }
  take(text, "+-");
  std::size_t digits = takeDigits(text).size();
  if (take(text, ".")) { digits += takeDigits(text).size(); }
  if (digits == 0) { return false; }
  return take(text, "eE") ? isExponent(text) : text.empty();
}
}  // namespace

Decimal::Decimal() : Decimal(0) {}
Decimal::Decimal(std::int64_t value) : value_(std::make_unique<Value>(Number(value))) {}
Decimal::Decimal(const Decimal& other) : value_(std::make_unique<Value>(*other.value_)) {}
Decimal::Decimal(Decimal&& other) noexcept = default;
Decimal& Decimal::operator=(const Decimal& other) {
  value_ = std::make_unique<Value>(*other.value_);
  return *this;
}
Decimal& Decimal::operator=(Decimal&& other) noexcept = default;
Decimal::~Decimal() = default;

std::optional<Decimal> Decimal::parse(std::string_view text) {
  if (!isDecimalText(text)) { return std::nullopt; }
  Decimal result;
  result.value_->number.assign(std::string(text));
  return result;
}

Decimal operator+(Decimal a, const Decimal& b) {
  a.value_->number += b.value_->number;
  return a;
}

Decimal operator*(Decimal a, const Decimal& b) {
  a.value_->number *= b.value_->number;
  return a;
}

bool operator==(const Decimal& a, const Decimal& b) { return (a <=> b) == 0; }

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) {
  return a.value_->number.compare(b.value_->number) <=> 0;
}

double Decimal::toDouble() const { return value_->number.convert_to<double>(); }

std::int64_t Decimal::toInt64() const {
  using Range = std::numeric_limits<std::int64_t>;
  const Number rounded = round(value_->number);
  if (rounded >= Range::max()) { return Range::max(); }
  if (rounded <= Range::min()) { return Range::min(); }
  return rounded.convert_to<std::int64_t>();
}

std::string Decimal::toText() const {
  std::string text = value_->number.str(longestFraction, std::ios_base::fixed);
  if (text.contains('.')) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') { text.pop_back(); }
  }
  return text == "-0" ? "0" : text;
}
}  // namespace orvane
