#include "platform/json/json_document.h"

#include <cstdint>
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
  std::optional<std::int64_t> integer;
};

void expectNumbers() {
  const NumberCase cases[]{
      {"-0", 0, 0},
      {"-0.0", 0, 0},
      {"-7", -7, -7},
      {"1700000000.0", 1.7e9, 1'700'000'000},
      {"-2.5E1", -25, -25},
      {"1.5", 1.5, {}},
      {"9007199254740993", 9007199254740992, 9007199254740993},
      {"9223372036854775807", 0x1p63, INT64_MAX},
      {"9223372036854775808", 0x1p63, {}},
      {"9223372036854775808.0", 0x1p63, {}},
      {"18446744073709551616", 0x1p64, {}},
      {"-9223372036854775808", -0x1p63, INT64_MIN},
      {"-9223372036854775809", -0x1p63, {}},
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
    const bool is[]{value.isNull(),
                    value.boolean().has_value(),
                    value.integer().has_value(),
                    value.number().has_value(),
                    value.text().has_value(),
                    value.isArray(),
                    value.isObject()};
    for (std::size_t type = 0; type < 7; ++type) {
      types += is[type] ? "nbidtao"[type] : '-';
    }
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
