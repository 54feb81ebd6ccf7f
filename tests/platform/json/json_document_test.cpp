#include "platform/json/json_document.h"
#include <vector>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include "platform/json/json_reader.h"
#include "support/comma_locale.h"

namespace orvane::test { namespace {

using namespace std::string_literals;

TEST(JsonDocumentTest, RefusesWhatIsNotOneWholeValueOfValidText) {
  for (const char* text : {"",
                           "{",
                           "[1,]",
                           "{\"a\":1,}",
                           "'a'",
                           "1 2",
                           "1,2",
                           "1],[2",
                           "{}}",
                           "NaN",
                           "nul",
                           "01",
                           "1e400",
                           "-1e400",
                           "0.18446744073709551616e400",
                           "12345678901234567890.",
                           "// c\n1",
                           "\"\n\"",
                           "\"\\ud800\"",
                           "\"\xff\"",
                           "[1]\xc3",
                           "{\"\xed\xa0\x80\":1}"}) {
    EXPECT_FALSE(JsonDocument::parse(text)) << text;
  }
  for (const std::string& text : {"{}\0"s, "\0{}"s, "[1,\0 2]"s}) {
    EXPECT_FALSE(JsonDocument::parse(text)) << text;
  }
  EXPECT_TRUE(JsonDocument::parse("\xEF\xBB\xBF{}"));
}

TEST(JsonDocumentTest, BoundsTheDepthWithoutTroubleForTheStack) {
  for (const std::size_t depth : {512UL, 513UL, 100'000UL}) {
    const std::string text = std::string(depth, '[') + std::string(depth, ']');
    EXPECT_EQ(JsonDocument::parse(text).has_value(), depth == 512) << depth;
  }
}

std::string listOf(std::size_t count, const std::string& element, const char* brackets = "[]") {
  std::string text(1, brackets[0]);
  for (std::size_t index = 0; index < count; ++index) {
    text += (index == 0 ? "" : ",") + element;
  }
  return text + brackets[1];
}

TEST(JsonDocumentTest, BoundsTheNumberOfEntriesAndOfAllValues) {
  for (const std::size_t count : {100'000UL, 100'001UL}) {
    const bool fits = count == 100'000;
    EXPECT_EQ(JsonDocument::parse(listOf(count, "0")).has_value(), fits);
    EXPECT_EQ(JsonDocument::parse(listOf(count, "[]")).has_value(), fits);
    EXPECT_EQ(JsonDocument::parse(listOf(count, "\"a\":0", "{}")).has_value(), fits);
  }
  EXPECT_TRUE(JsonDocument::parse(listOf(19, listOf(100'000, "0"))));
  EXPECT_FALSE(JsonDocument::parse(listOf(21, listOf(100'000, "0"))));
}

/// In kB, of the process.
long mostMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

TEST(JsonDocumentTest, RefusesTooManyTokensBeforeTheyCostMemory) {
  std::string commas;
  commas.resize(12'000'000, ',');
  EXPECT_TRUE(JsonDocument::parse("[\"\\\"" + commas + "\"]"));
  std::string zeros = "[0";
  zeros.reserve(24'000'001);
  while (zeros.size() < 24'000'000) {
    zeros += ",0";
  }
  zeros += "]";
  const long before = mostMemory();
  EXPECT_FALSE(JsonDocument::parse(zeros));
  EXPECT_LT(mostMemory() - before, 20'000);
}

TEST(JsonReaderTest, ReadsNoElementBehindTheFirstThatDoesNotFit) {
  static int reads = 0;
  constexpr JsonRead<int> read = [](JsonValue value, JsonMatch& match) {
    if (++reads; !value.boolean()) { match.fail(); }
    return 0;
  };
  const std::optional<JsonDocument> document = JsonDocument::parse("[true, 0, true, true]");
  JsonMatch match;
  EXPECT_EQ(readJsonArray(document.value().root(), match, read).size(), 2U);
  EXPECT_TRUE(match.failed());
  EXPECT_EQ(reads, 2);
}

TEST(JsonDocumentTest, KeepsTextsWithTheirEscapesAndNul) {
  std::string text = R"({"name": "\u00e9 é \ud83d\ude00 \u0000|"})";
  const std::optional<JsonDocument> document = JsonDocument::parse(text);
  text.assign(text.size(), 'x');
  ASSERT_TRUE(document);
  EXPECT_EQ(document->root().last("name")->text(), "é é 😀 \0|"s);
}

TEST(JsonDocumentTest, KeepsWholeNumbersExactlyAlsoUnderALocaleWithDecimalComma) {
  const CommaLocale locale;
  ASSERT_TRUE(locale.isSet());
  using Integer = std::optional<std::int64_t>;
  const std::tuple<std::string_view, double, Integer> cases[]{
      {"-0.0", 0, 0},
      {"1700000000.0", 1.7e9, 1'700'000'000},
      {"-2.5E1", -25, -25},
      {"1.5", 1.5, {}},
      {"0.0000922337203685477580800000", 9.223372036854775808e-5, {}},
      {"0e18446744073709551616", 0, 0},
      {"9007199254740993", 9007199254740992, 9007199254740993},
      {"9223372036854775807", 0x1p63, INT64_MAX},
      {"9223372036854775808", 0x1p63, {}},
      {"9223372036854775808.0", 0x1p63, {}},
      {"18446744073709551616", 0x1p64, {}},
      {"-9223372036854775808", -0x1p63, INT64_MIN},
      {"-9223372036854775809", -0x1p63, {}}};
  for (const auto& [text, number, integer] : cases) {
    const std::optional<JsonDocument> document = JsonDocument::parse(text);
    ASSERT_TRUE(document) << text;
    EXPECT_EQ(document->root().number(), number) << text;
    EXPECT_EQ(document->root().integer(), integer) << text;
  }
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

}}  // namespace orvane::test
