#include "platform/json/json_reader.h"

#include <functional>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

using Read = std::function<void(const JsonObjectReader&)>;

bool matches(std::string_view text, const Read& read) {
  const std::optional<JsonDocument> document = JsonDocument::parse(text);
  if (!document) {
    ADD_FAILURE() << "not JSON: " << text;
    return false;
  }
  JsonMatch match;
  read(JsonObjectReader(document->root(), match));
  return !match.failed();
}

const Read readText = [](const JsonObjectReader& reader) { (void)reader.text("m"); };
const Read readNumber = [](const JsonObjectReader& reader) { (void)reader.number("m"); };
const Read readInteger = [](const JsonObjectReader& reader) { (void)reader.integer("m"); };
const Read readBoolean = [](const JsonObjectReader& reader) { (void)reader.boolean("m"); };
const Read readValue = [](const JsonObjectReader& reader) { (void)reader.value("m"); };
const Read tryText = [](const JsonObjectReader& reader) { (void)reader.optionalText("m"); };
const Read tryView = [](const JsonObjectReader& reader) { (void)reader.optionalTextView("m"); };
const Read tryNumber = [](const JsonObjectReader& reader) { (void)reader.optionalNumber("m"); };
const Read tryInteger = [](const JsonObjectReader& reader) { (void)reader.optionalInteger("m"); };

struct MemberCase {
  std::string_view text;
  /// The columns: text, number, integer, boolean, value; then the optional text, text view,
  /// number and integer. "+" matches, "-" fails the document.
  std::string_view matches;
};

TEST(JsonReaderTest, FailsTheDocumentForMissingAndMistypedMembers) {
  const std::vector<Read> reads{readText, readNumber, readInteger, readBoolean, readValue,
                                tryText,  tryView,    tryNumber,   tryInteger};
  const std::vector<MemberCase> cases{
      {.text = R"({})", .matches = "-----++++"},
      {.text = R"({"M": "x"})", .matches = "-----++++"},
      {.text = R"({"m": null})", .matches = "-----++++"},
      {.text = R"({"m": "1"})", .matches = "+---+++--"},
      {.text = R"({"m": ""})", .matches = "+---+++--"},
      {.text = R"({"m": 1})", .matches = "-++-+--++"},
      {.text = R"({"m": 1e3})", .matches = "-++-+--++"},
      {.text = R"({"m": 1.5})", .matches = "-+--+--+-"},
      {.text = R"({"m": 9223372036854775808})", .matches = "-+--+--+-"},
      {.text = R"({"m": true})", .matches = "---++----"},
      {.text = R"({"m": {}})", .matches = "----+----"},
      {.text = R"({"m": [1]})", .matches = "----+----"},
      {.text = R"({"m": 1, "m": "last"})", .matches = "+---+++--"},
      {.text = R"({"m": "first", "m": null})", .matches = "-----++++"},
      {.text = R"([{"m": 1}])", .matches = "---------"},
      {.text = R"(null)", .matches = "---------"},
  };
  for (const MemberCase& test : cases) {
    std::string outcome;
    for (const Read& read : reads) {
      outcome += matches(test.text, read) ? '+' : '-';
    }
    EXPECT_EQ(outcome, test.matches) << test.text;
  }
}

TEST(JsonReaderTest, GivesTheValuesAndIgnoresOtherMembers) {
  const std::optional<JsonDocument> document = JsonDocument::parse(
      R"({"t": "x", "n": 1.5, "i": 5, "b": true, "unread": [{}], "v": {"t": "inner"}})");
  ASSERT_TRUE(document);
  JsonMatch match;
  const JsonObjectReader reader(document->root(), match);
  EXPECT_EQ(reader.text("t"), "x");
  EXPECT_EQ(reader.optionalText("t"), "x");
  EXPECT_EQ(reader.optionalTextView("t"), "x");
  EXPECT_EQ(reader.number("n"), 1.5);
  EXPECT_EQ(reader.optionalNumber("i"), 5);
  EXPECT_EQ(reader.integer("i"), 5);
  EXPECT_EQ(reader.optionalInteger("i"), 5);
  EXPECT_TRUE(reader.boolean("b"));
  EXPECT_EQ(reader.optionalText("none"), std::nullopt);
  EXPECT_EQ(JsonObjectReader(reader.value("v"), match).text("t"), "inner");
  EXPECT_FALSE(match.failed());
}

TEST(JsonReaderTest, VisitsNothingOfAContainerOfTheOtherKind) {
  struct Case {
    std::string_view text;
    std::size_t elements;
    std::size_t members;
  };
  const std::vector<Case> cases{{.text = "[1, 2]", .elements = 2, .members = 0},
                                {.text = R"({"a": 1})", .elements = 0, .members = 1},
                                {.text = "\"ab\"", .elements = 0, .members = 0}};
  for (const Case& test : cases) {
    const std::optional<JsonDocument> document = JsonDocument::parse(test.text);
    ASSERT_TRUE(document);
    JsonMatch asArray;
    JsonMatch asObject;
    EXPECT_EQ(arrayElements(document->root(), asArray).size(), test.elements);
    EXPECT_EQ(objectMembers(document->root(), asObject).size(), test.members);
    EXPECT_EQ(asArray.failed(), test.elements == 0);
    EXPECT_EQ(asObject.failed(), test.members == 0);
  }
}

}  // namespace
}  // namespace orvane::test
