#include "platform/text/unicode.h"

#include <vector>

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

using namespace std::string_literals;

struct TextCase {
  std::string text;
  std::string expected;
};

TEST(UnicodeTest, TrimsEveryWhiteSpaceOfUnicodeAndNothingElse) {
  const std::vector<TextCase> cases{
      {"", ""},
      {" \t\r\n\v\f", ""},
      {"  a b  ", "a b"},
      {"\u00a0a\u00a0", "a"},
      {"\u0085\u2028a\u2029\u3000", "a"},
      {"\u1680\u2003\u202f\u205fa", "a"},
      {"\u200ba\ufeff", "\u200ba\ufeff"},  // zero width, but not white space
      {"\0a\0"s, "\0a\0"s},
      {" \xff ", "\xff"},
      {" a\x85\xa0", "a\x85\xa0"},  // the ends of white space characters, without their heads
      {"\xc2", "\xc2"},
      {"€ ", "€"},
  };
  for (const TextCase& test : cases) {
    EXPECT_EQ(trimmed(test.text), test.expected);
  }
}

TEST(UnicodeTest, LowersBeyondAsciiAndWhateverTheLocale) {
  const std::vector<TextCase> cases{{"", ""},           {"GH/s", "gh/s"}, {"ÄÉ", "äé"},
                                    {"İI", "i\u0307i"}, {"ΣΑΣ", "σας"},   {"K", "k"}};
  for (const TextCase& test : cases) {
    EXPECT_EQ(lowercased(test.text), test.expected);
  }
}

TEST(UnicodeTest, ComposesCanonically) {
  const std::vector<TextCase> cases{{"a", "a"},           {"e\u0301", "\u00e9"},
                                    {"\u00e9", "\u00e9"}, {"\u212b", "\u00c5"},
                                    {"ﬁ", "ﬁ"},           {"e\u0301\xff", "e\u0301\xff"}};
  for (const TextCase& test : cases) {
    EXPECT_EQ(nfcNormalized(test.text), test.expected);
  }
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
  const std::vector<TextCase> cases{{"850000", "850000"},
                                    {"\xff"
                                     "1",
                                     "\ufffd"
                                     "1"},
                                    {"1\xe2\x82", "1\ufffd"},
                                    {"\xc0\x80", "\ufffd\ufffd"}};
  for (const TextCase& test : cases) {
    EXPECT_EQ(decodedLossily(test.text), test.expected);
  }
}

TEST(UnicodeTest, EscapesEverythingButLettersMarksAndNumbers) {
  const std::vector<TextCase> cases{
      {"bc1qAZaz09", "bc1qAZaz09"},
      {"a/b?c=d&e", "a%2Fb%3Fc%3Dd%26e"},
      {"a-b_c.d~e", "a%2Db%5Fc%2Ed%7Ee"},
      {"é٣e\u0301", "é٣e\u0301"},
      {"€ ", "%E2%82%AC%20"},
      {"\0"s, "%00"},
      {"a b\xff", "a b\xff"},
  };
  for (const TextCase& test : cases) {
    EXPECT_EQ(percentEscaped(test.text), test.expected);
  }
}

}  // namespace
}  // namespace orvane::test
