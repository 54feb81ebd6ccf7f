#include "platform/json/json_reader.h"

#include <functional>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

using Read = std::function<void(const JsonObjectReader&)>;

const std::vector<Read> reads{
    [](const auto& reader) { (void)reader.text("m"); },
    [](const auto& reader) { (void)reader.number("m"); },
    [](const auto& reader) { (void)reader.integer("m"); },
    [](const auto& reader) { (void)reader.boolean("m"); },
    [](const auto& reader) { (void)reader.value("m"); },
    [](const auto& reader) { (void)reader.optionalText("m"); },
    [](const auto& reader) { (void)reader.optionalTextView("m"); },
    [](const auto& reader) { (void)reader.optionalNumber("m"); },
    [](const auto& reader) { (void)reader.optionalInteger("m"); },
};

struct MemberCase {
  std::string_view text;
  /// A column for each of the reads: "+" matches, "-" fails the document.
  std::string_view matches;
};

TEST(JsonReaderTest, FailsTheDocumentForMissingAndMistypedMembers) {
  const std::vector<MemberCase> cases{
      {.text = R"({"M": "x"})", .matches = "-----++++"},
      {.text = R"({"m": null})", .matches = "-----++++"},
      {.text = R"({"m": ""})", .matches = "+---+++--"},
      {.text = R"({"m": 1})", .matches = "-++-+--++"},
      {.text = R"({"m": 1.5})", .matches = "-+--+--+-"},
      {.text = R"({"m": true})", .matches = "---++----"},
      {.text = R"({"m": [1]})", .matches = "----+----"},
      {.text = R"({"m": 1, "m": "last"})", .matches = "+---+++--"},
      {.text = R"([{"m": 1}])", .matches = "---------"},
      {.text = R"(null)", .matches = "---------"},
  };
  for (const MemberCase& test : cases) {
    const std::optional<JsonDocument> document = JsonDocument::parse(test.text);
    ASSERT_TRUE(document);
    std::string outcome;
    for (const Read& read : reads) {
      JsonMatch match;
      read(JsonObjectReader(document->root(), match));
      outcome += match.failed() ? '-' : '+';
    }
    EXPECT_EQ(outcome, test.matches) << test.text;
  }
}

TEST(JsonReaderTest, GivesTheValuesAndIgnoresOtherMembers) {
  const std::optional<JsonDocument> document =
      JsonDocument::parse(R"({"t": "x", "n": 1.5, "i": 5, "b": true, "v": {"t": "inner"}})");
  ASSERT_TRUE(document);
  JsonMatch match;
  const JsonObjectReader reader(document->root(), match);
  EXPECT_EQ(reader.text("t"), "x");
  EXPECT_EQ(reader.optionalText("t"), "x");
  EXPECT_EQ(reader.number("n"), 1.5);
  EXPECT_EQ(reader.optionalNumber("i"), 5);
  EXPECT_EQ(reader.integer("i"), 5);
  EXPECT_EQ(reader.optionalInteger("i"), 5);
  EXPECT_TRUE(reader.boolean("b"));
  EXPECT_EQ(reader.optionalText("none"), std::nullopt);
  EXPECT_EQ(JsonObjectReader(reader.value("v"), match).text("t"), "inner");
  EXPECT_FALSE(match.failed());
}

struct ContainerCase {
  std::string_view text;
  std::size_t elements;
  std::size_t members;
};

TEST(JsonReaderTest, VisitsNothingOfAContainerOfTheOtherKind) {
  for (const auto& [text, elements, members] :
       {ContainerCase{"[1, 2]", 2, 0}, ContainerCase{R"({"a": 1})", 0, 1},
        ContainerCase{"\"ab\"", 0, 0}}) {
    const std::optional<JsonDocument> document = JsonDocument::parse(text);
    ASSERT_TRUE(document);
    JsonMatch asArray;
    JsonMatch asObject;
    EXPECT_EQ(arrayElements(document->root(), asArray).size(), elements);
    EXPECT_EQ(objectMembers(document->root(), asObject).size(), members);
    EXPECT_EQ(asArray.failed(), elements == 0);
    EXPECT_EQ(asObject.failed(), members == 0);
  }
}

}  // namespace
}  // namespace orvane::test
