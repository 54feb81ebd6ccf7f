#include "address/bitcoin_address.h"
#include <algorithm>
#include <cstddef>
#include <string>
#include "platform/text/unicode.h"

namespace orvane {
namespace {
constexpr std::string_view base58Alphabet =
    "123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz";
constexpr std::string_view bech32Charset = "qpzry9x8gf2tvdw0s3jn54khce6mua7l";

constexpr std::string_view segregatedWitnessPrefix = "bc1";
constexpr std::size_t segregatedWitnessShortest = 14;
constexpr std::size_t segregatedWitnessLongest = 90;
constexpr std::size_t legacyShortest = 26;
constexpr std::size_t legacyLongest = 35;

constexpr bool isUpper(char c) { return c >= 'A' && c <= 'Z'; }
constexpr bool isLower(char c) { return c >= 'a' && c <= 'z'; }

bool consistsOf(std::string_view alphabet, std::string_view text) {
  return text.find_first_not_of(alphabet) == std::string_view::npos;
}

bool isOfOneCase(std::string_view text) {
  return std::ranges::none_of(text, isUpper) || std::ranges::none_of(text, isLower);
}

// Both alphabets are ASCII, so where a length in bytes differs from one in characters the text is
// refused for its characters.
bool isSegregatedWitness(std::string_view text, std::string_view lower) {
  return text.size() >= segregatedWitnessShortest && text.size() <= segregatedWitnessLongest &&
         consistsOf(bech32Charset, lower.substr(segregatedWitnessPrefix.size())) &&
         isOfOneCase(text);
}

bool isLegacy(std::string_view text) {
  return (text.starts_with('1') || text.starts_with('3')) && text.size() >= legacyShortest &&
         text.size() <= legacyLongest && consistsOf(base58Alphabet, text);
}
}  // namespace

bool isValidMainnetAddress(std::string_view text) {
  const std::string lower = asciiLowercased(text);
  return lower.starts_with(segregatedWitnessPrefix) ? isSegregatedWitness(text, lower)
                                                    : isLegacy(text);
}
}  // namespace orvane
