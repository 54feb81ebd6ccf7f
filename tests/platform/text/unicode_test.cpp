#include "platform/text/unicode.h"
#include <gtest/gtest.h>

namespace orvane::test { namespace {

using namespace std::string_literals;

using TextCase = std::pair<std::string, std::string>;

TEST(UnicodeTest, TrimsEveryWhiteSpaceOfUnicodeAndNothingElse) {
  const TextCase cases[]{
      {"  a b \t\r\n\v\f", "a b"},
      {"\u0085\u2028a\u00a0\u3000", "a"},
      {"\u200ba\ufeff", "\u200ba\ufeff"},  // zero width, but not white space
      {"\0a\0"s, "\0a\0"s},
      {" a\x85\xa0", "a\x85\xa0"}};  // the ends of white space characters, without their heads
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(trimmed(text), expected);
  }
}

TEST(UnicodeTest, LowersAsciiLettersOnly) {
  EXPECT_EQ(asciiLowercased("BC1Q GH/s ÄÉ \u212A"), "bc1q gh/s ÄÉ \u212A");
}

TEST(UnicodeTest, TellsValidUtf8) {
  for (const std::string& text : {""s, "a\0b"s, "é€😀"s, "\U0010ffff"s}) {
    EXPECT_TRUE(isValidUtf8(text)) << text;
  }
  for (const std::string& bytes : {"\x80"s, "a\xc3"s, "\xc0\x80"s, "\xed\xa0\x80"s,
                                   "\xf4\x90\x80\x80"s, "\xe2\x82"s, "\xff"s}) {
    EXPECT_FALSE(isValidUtf8(bytes));
  }
}

TEST(UnicodeTest, ReplacesInvalidSequences) {
  EXPECT_EQ(decodedLossily("850000"), "850000");
  EXPECT_EQ(decodedLossily("\xff|\xe2\x82"), "\ufffd|\ufffd");
}

TEST(UnicodeTest, EscapesEverythingButLettersMarksAndNumbers) {
  const TextCase cases[]{{"bc1qAZaz09", "bc1qAZaz09"},       {"a/b?c=d&e", "a%2Fb%3Fc%3Dd%26e"},
                         {"a-b_c.d~e", "a%2Db%5Fc%2Ed%7Ee"}, {"é٣e\u0301", "é٣e\u0301"},
                         {"€\0"s, "%E2%82%AC%00"},           {"a b\xff", "a b\xff"}};
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(percentEscaped(text), expected);
  }
}

TEST(UnicodeTest, IsolatesNumbersWhereOthersWouldChangePlacesWithThem) {
  const std::pair<const char*, const char*> cases[]{
      {"Block #900,001 · 5 sats", "Block #900,001 · 5 sats"},
      {"Block #٩٠٠٬٠٠١ · ٥ sats", "Block #\u2068٩٠٠٬٠٠١\u2069 · \u2068٥\u2069 sats"},
      {"٢٠٣ | ٠ sats", "\u2068٢٠٣\u2069 | \u2068٠\u2069 sats"},
      {"\u061C-٥٫٥ BTC.", "\u2068\u061C-٥٫٥\u2069 BTC."},
      {"٢:٠٥ م, 3.", "\u2068٢:٠٥\u2069 م, \u20683\u2069."}};
  for (const auto& [text, isolated] : cases) {
    EXPECT_EQ(numbersIsolated(text), isolated);
  }
}

TEST(UnicodeTest, MarksWhatWouldReorderOrBreakALine) {
  EXPECT_EQ(controlsMarked("é gnp\u202Eexe.\u2066a\u2028b\n\x7f"),
            "é gnp\uFFFDexe.\uFFFDa\uFFFDb\uFFFD\uFFFD");
}

}}  // namespace orvane::test
