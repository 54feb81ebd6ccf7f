#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/json/json_reader.h"

namespace orvane {

/// Reads one record out of a value; fails the match when the value is not as the record says.
template <class Record>
using JsonRead = Record (*)(JsonValue value, JsonMatch& match);

/// The record in a whole JSON text. Nothing when `text` is no JSON or any part of it fails the
/// match: a document is used as a whole or not at all.
template <class Record>
[[nodiscard]] std::optional<Record> decodeJson(std::string_view text, JsonRead<Record> read) {
  const std::optional<JsonDocument> document = JsonDocument::parse(text);
  if (!document) { return std::nullopt; }
  JsonMatch match;
  Record record = read(document->root(), match);
  if (match.failed()) { return std::nullopt; }
  return record;
}

/// The records of an array, in its order; fails the match when `array` is none.
template <class Record>
[[nodiscard]] std::vector<Record> readJsonArray(JsonValue array, JsonMatch& match,
                                                JsonRead<Record> read) {
  std::vector<Record> records;
  records.reserve(array.size());
  for (const JsonMember element : arrayElements(array, match)) {
    records.push_back(read(element.value, match));
  }
  return records;
}

}  // namespace orvane
