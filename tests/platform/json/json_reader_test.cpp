#include "platform/json/json_reader.h"

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

using Read = void (*)(const JsonObjectReader& reader);

constexpr Read reads[]{
    [](const auto& reader) { (void)reader.text("m"); },
    [](const auto& reader) { (void)reader.number("m"); },
    [](const auto& reader) { (void)reader.integer("m"); },
    [](const auto& reader) { (void)reader.boolean("m"); },
    [](const auto& reader) { (void)reader.value("m"); },
    [](const auto& reader) { (void)reader.optionalText("m"); },
    [](const auto& reader) { (void)reader.optionalNumber("m"); },
    [](const auto& reader) { (void)reader.optionalInteger("m"); },
};

TEST(JsonReaderTest, FailsTheDocumentForMissingAndMistypedMembers) {
  // A column for each of the reads: "+" matches, "-" fails the document.
  const std::pair<std::string_view, std::string_view> cases[]{
      {R"({"M": "x"})", "-----+++"}, {R"({"m": null})", "-----+++"},
      {R"({"m": ""})", "+---++--"},  {R"({"m": 1})", "-++-+-++"},
      {R"({"m": 1.5})", "-+--+-+-"}, {R"({"m": true})", "---++---"},
      {R"({"m": [1]})", "----+---"}, {R"({"m": 1, "m": "last"})", "+---++--"},
      {R"([{"m": 1}])", "--------"}, {"null", "--------"}};
  for (const auto& [text, matches] : cases) {
    const std::optional<JsonDocument> document = JsonDocument::parse(text);
    ASSERT_TRUE(document);
    std::string outcome;
    for (const Read& read : reads) {
      JsonMatch match;
      read(JsonObjectReader(document->root(), match));
      outcome += match.failed() ? '-' : '+';
    }
    EXPECT_EQ(outcome, matches) << text;
  }
}

std::int64_t readInteger(JsonValue value, JsonMatch& match) {
  return JsonObjectReader(value, match).integer("m");
}
auto readList(JsonValue value, JsonMatch& match) {
  return readJsonArray(value, match, readInteger);
}
auto readMap(JsonValue value, JsonMatch& match) { return readJsonMap(value, match, readInteger); }

TEST(JsonReaderTest, ReadsAListOrAMapAsAWholeOrNotAtAll) {
  using List = std::vector<std::int64_t>;
  using Map = std::map<std::string, std::int64_t, std::less<>>;
  const std::tuple<std::string_view, std::optional<List>, std::optional<Map>> cases[]{
      {R"([{"m": 2}, {"m": 1}])", List{2, 1}, {}},
      {R"({"b": {"m": 1}, "a": {"m": 2}, "b": {"m": 3}})", {}, Map{{"a", 2}, {"b", 3}}},
      {"[]", List{}, {}},
      {"{}", {}, Map{}},
      {R"([{"m": 1}, 2])", {}, {}},
      {R"({"a": {"m": true}, "a": {"m": 1}})", {}, {}},
      {"\"ab\"", {}, {}}};
  for (const auto& [text, list, map] : cases) {
    EXPECT_EQ(decodeJson(text, readList), list) << text;
    EXPECT_EQ(decodeJson(text, readMap), map) << text;
  }
}

}  // namespace
}  // namespace orvane::test
