#include "platform/json/json_document.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/comma_locale.h"

namespace orvane::test {
namespace {

using namespace std::string_literals;

TEST(JsonDocumentTest, RefusesWhatIsNotOneWholeValueOfValidText) {
  for (const std::string& text : {""s,
                                  "{"s,
                                  "[1,]"s,
                                  "{\"a\":1,}"s,
                                  "'a'"s,
                                  "1 2"s,
                                  "{}}"s,
                                  "NaN"s,
                                  "01"s,
                                  "1e400"s,
                                  "-1e400"s,
                                  "// c\n1"s,
                                  "\"\n\""s,
                                  "\"\\ud800\""s,
                                  "\"\xff\""s,
                                  "[1]\xc3"s,
                                  "{\"\xed\xa0\x80\":1}"s,
                                  "{}\0"s,
                                  "\0{}"s,
                                  "[1,\0 2]"s}) {
    EXPECT_FALSE(JsonDocument::parse(text)) << text;
  }
  EXPECT_TRUE(JsonDocument::parse("\xEF\xBB\xBF{}"));
}

TEST(JsonDocumentTest, BoundsTheDepthWithoutTroubleForTheStack) {
  EXPECT_TRUE(JsonDocument::parse(std::string(512, '[') + std::string(512, ']')));
  EXPECT_FALSE(JsonDocument::parse(std::string(513, '[') + std::string(513, ']')));
  EXPECT_FALSE(JsonDocument::parse(std::string(100'000, '[') + std::string(100'000, ']')));
}

TEST(JsonDocumentTest, KeepsTextsWithTheirEscapesAndNul) {
  std::string text = R"({"name": "\u00e9 é \ud83d\ude00 \u0000|"})";
  const std::optional<JsonDocument> document = JsonDocument::parse(text);
  text.assign(text.size(), 'x');
  ASSERT_TRUE(document);
  EXPECT_EQ(document->root().last("name")->text(), "é é 😀 \0|"s);
}

struct NumberCase {
  std::string_view text;
  double number;
  std::optional<std::int64_t> integer = {};
};

void expectNumbers() {
  using Range = std::numeric_limits<std::int64_t>;
  constexpr NumberCase cases[]{
      {.text = "-0", .number = 0, .integer = 0},
      {.text = "-0.0", .number = 0, .integer = 0},
      {.text = "-7", .number = -7, .integer = -7},
      {.text = "1700000000.0", .number = 1.7e9, .integer = 1'700'000'000},
      {.text = "-2.5E1", .number = -25, .integer = -25},
      {.text = "1.5", .number = 1.5},
      {.text = "9007199254740993", .number = 9007199254740992, .integer = 9007199254740993},
      {.text = "9223372036854775807", .number = 0x1p63, .integer = Range::max()},
      {.text = "9223372036854775808", .number = 0x1p63},
      {.text = "9223372036854775808.0", .number = 0x1p63},
      {.text = "18446744073709551616", .number = 0x1p64},
      {.text = "-9223372036854775808", .number = -0x1p63, .integer = Range::min()},
      {.text = "-9223372036854775809", .number = -0x1p63},
  };
  for (const NumberCase& test : cases) {
    const std::optional<JsonDocument> document = JsonDocument::parse(test.text);
    ASSERT_TRUE(document) << test.text;
    EXPECT_EQ(document->root().number(), test.number) << test.text;
    EXPECT_EQ(document->root().integer(), test.integer) << test.text;
  }
}

TEST(JsonDocumentTest, KeepsWholeNumbersExactlyAndTellsThemFromOthers) { expectNumbers(); }

TEST(JsonDocumentTest, ReadsNumbersAlikeUnderALocaleWithDecimalComma) {
  const CommaLocale locale;
  ASSERT_TRUE(locale.isSet());
  expectNumbers();
}

TEST(JsonDocumentTest, GivesNothingForAnotherType) {
  const std::optional<JsonDocument> document =
      JsonDocument::parse(R"([null, true, 1, 1.5, "1", [1], {"a": 1}])");
  ASSERT_TRUE(document);
  std::string types;
  for (const auto& [name, value] : document->root()) {
    types += value.isNull() ? 'n' : '-';
    types += value.boolean() ? 'b' : '-';
    types += value.integer() ? 'i' : '-';
    types += value.number() ? 'd' : '-';
    types += value.text() ? 't' : '-';
    types += value.isArray() ? 'a' : '-';
    types += value.isObject() ? 'o' : '-';
    types += value.size() == 1 ? "1 " : "0 ";
  }
  EXPECT_EQ(types, "n------0 -b-----0 --id---0 ---d---0 ----t--0 -----a-1 ------o1 ");
}

TEST(JsonDocumentTest, VisitsEveryMemberInOrderAndFindsTheLastOfAName) {
  const std::optional<JsonDocument> document =
      JsonDocument::parse(R"({"a": {"a": [9, [8]], "b": 7}, "": 2, "a": 3, "b\u0000": 4})");
  ASSERT_TRUE(document);
  std::vector<std::string> names;
  for (const JsonMember member : document->root()) {
    names.emplace_back(member.name);
  }
  EXPECT_EQ(names, (std::vector{"a"s, ""s, "a"s, "b\0"s}));
  EXPECT_EQ(document->root().last("a")->integer(), 3);
  EXPECT_FALSE(document->root().last("b"));
}

}  // namespace
}  // namespace orvane::test
