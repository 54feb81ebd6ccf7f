#include "platform/text/unicode.h"
#include <algorithm>
#include <cstdint>
#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

namespace orvane {
namespace {
constexpr std::size_t longestSequence = 4;

/// One character at an end of a text; `codePoint` is negative where the bytes are not UTF-8.
struct Character {
  UChar32 codePoint;
  std::size_t size;
};

Character firstCharacter(std::string_view text) {
  const std::string_view head = text.substr(0, longestSequence);
  std::int32_t end = 0;
  UChar32 codePoint = 0;
  const auto size = static_cast<std::int32_t>(head.size());
  // NOLINTNEXTLINE(bugprone-inc-dec-in-conditions): inside ICU's macro
  U8_NEXT(head.data(), end, size, codePoint);
  return {.codePoint = codePoint, .size = static_cast<std::size_t>(end)};
}

Character lastCharacter(std::string_view text) {
  const std::string_view tail = text.substr(text.size() - std::min(text.size(), longestSequence));
  auto start = static_cast<std::int32_t>(tail.size());
  UChar32 codePoint = 0;
  U8_PREV(tail.data(), 0, start, codePoint);
  return {.codePoint = codePoint, .size = tail.size() - static_cast<std::size_t>(start)};
}

bool isWhiteSpace(Character character) {
  return character.codePoint >= 0 && u_isUWhiteSpace(character.codePoint) != 0;
}

bool runsFromRightToLeft(UChar32 codePoint) {
  const UCharDirection direction = u_charDirection(codePoint);
  return direction == U_RIGHT_TO_LEFT || direction == U_RIGHT_TO_LEFT_ARABIC ||
         direction == U_ARABIC_NUMBER;
}

bool isDirectionMark(UChar32 codePoint) {
  return codePoint == 0x061C || codePoint == 0x200E || codePoint == 0x200F;
}

bool isSign(UChar32 codePoint) {
  return codePoint == '-' || codePoint == '+' || codePoint == 0x2212;
}

/// What stands between the digits of amounts, dates and times.
bool isBetweenDigits(UChar32 codePoint) {
  constexpr std::u32string_view separators = U".,:/'-\u2019\u00A0\u202F\u066B\u066C";
  return isDirectionMark(codePoint) || separators.contains(static_cast<char32_t>(codePoint));
}

/// How long the number is that the text begins with, with its sign; 0 when it begins with none.
std::size_t numberLength(std::string_view text) {
  std::size_t length = 0;
  bool hasDigit = false;
  for (std::size_t at = 0; at < text.size();) {
    const Character next = firstCharacter(text.substr(at));
    at += next.size;
    if (u_isdigit(next.codePoint) != 0) {
      hasDigit = true;
      length = at;
    } else if (hasDigit ? !isBetweenDigits(next.codePoint)
                        : !isDirectionMark(next.codePoint) && !isSign(next.codePoint)) {
      break;
    }
  }
  return length;
}

bool isReorderingOrShapeless(UChar32 codePoint) {
  const bool isLineEnd = codePoint == 0x2028 || codePoint == 0x2029;
  const bool embeds = codePoint >= 0x202A && codePoint <= 0x202E;
  const bool isolates = codePoint >= 0x2066 && codePoint <= 0x2069;
  return isLineEnd || embeds || isolates || isDirectionMark(codePoint) ||
         u_charType(codePoint) == U_CONTROL_CHAR;
}

bool isLetterMarkOrNumber(UChar32 codePoint) {
  return (U_GET_GC_MASK(codePoint) & (U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK)) != 0;
}

char lowercasedAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

icu::StringPiece piece(std::string_view text) {
  return {text.data(), static_cast<std::int32_t>(text.size())};
}
}  // namespace

std::string_view trimmed(std::string_view text) {
  while (!text.empty()) {
    const Character first = firstCharacter(text);
    if (!isWhiteSpace(first)) { break; }
    text.remove_prefix(first.size);
  }
  while (!text.empty()) {
    const Character last = lastCharacter(text);
    if (!isWhiteSpace(last)) { break; }
    text.remove_suffix(last.size);
  }
  return text;
}

std::string asciiLowercased(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), lowercasedAscii);
  return result;
}

bool isAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string nfcNormalized(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* const composition = icu::Normalizer2::getNFCInstance(status);
  if (U_FAILURE(status) || isAscii(text) || !isValidUtf8(text)) { return std::string(text); }
  std::string result;
  icu::StringByteSink<std::string> sink(&result);
  composition->normalizeUTF8(0, piece(text), sink, nullptr, status);
  return U_SUCCESS(status) ? result : std::string(text);
}

bool isStreamSafe(std::string_view text) {
  if (isAscii(text)) { return true; }
  constexpr int longestRun = 30;
  int run = 0;
  while (!text.empty()) {
    const Character first = firstCharacter(text);
    run = u_getCombiningClass(first.codePoint) == 0 ? 0 : run + 1;
    if (run > longestRun) { return false; }
    text.remove_prefix(first.size);
  }
  return true;
}

std::size_t characterCount(std::string_view text) {
  constexpr auto isFirstByte = [](char byte) {
    return !U8_IS_TRAIL(static_cast<std::uint8_t>(byte));
  };
  return static_cast<std::size_t>(std::ranges::count_if(text, isFirstByte));
}

bool isValidUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const Character first = firstCharacter(bytes);
    if (first.codePoint < 0) { return false; }
    bytes.remove_prefix(first.size);
  }
  return true;
}

std::string decodedLossily(std::string_view bytes) {
  if (isValidUtf8(bytes)) { return std::string(bytes); }
  std::string text;
  return icu::UnicodeString::fromUTF8(piece(bytes)).toUTF8String(text);
}

std::string numbersIsolated(std::string_view text) {
  bool isMixed = false;
  for (std::string_view rest = text; !rest.empty() && !isMixed;) {
    const Character first = firstCharacter(rest);
    isMixed = runsFromRightToLeft(first.codePoint);
    rest.remove_prefix(first.size);
  }
  if (!isMixed) { return std::string(text); }
  std::string result;
  while (!text.empty()) {
    const std::size_t number = numberLength(text);
    const std::size_t size = number > 0 ? number : firstCharacter(text).size;
    const std::string_view piece = text.substr(0, size);
    result += number > 0 ? "\u2068" + std::string(piece) + "\u2069" : std::string(piece);
    text.remove_prefix(size);
  }
  return result;
}

std::string controlsMarked(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const Character first = firstCharacter(text);
    result += isReorderingOrShapeless(first.codePoint) ? "\uFFFD" : text.substr(0, first.size);
    text.remove_prefix(first.size);
  }
  return result;
}

std::string percentEscaped(std::string_view text) {
  if (!isValidUtf8(text)) { return std::string(text); }
  constexpr std::string_view hexDigits = "0123456789ABCDEF";
  std::string escaped;
  while (!text.empty()) {
    const Character first = firstCharacter(text);
    const std::string_view bytes = text.substr(0, first.size);
    if (isLetterMarkOrNumber(first.codePoint)) {
      escaped += bytes;
    } else {
      for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        escaped += {'%', hexDigits[value >> 4U], hexDigits[value & 0xFU]};
      }
    }
    text.remove_prefix(first.size);
  }
  return escaped;
}
}  // namespace orvane
