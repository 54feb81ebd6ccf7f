#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include "platform/json/json_document.h"

namespace orvane {
/// Whether a document has matched its record so far. One failed member fails the whole document:
/// readers of the same document share one JsonMatch and decoders ask it once, at the end.
class JsonMatch {
 public:
  void fail() { failed_ = true; }
  [[nodiscard]] bool failed() const { return failed_; }

 private:
  bool failed_ = false;
};

/// Reads the members of one object by name. A required member that is missing, null or of another
/// type, and an optional one of another type, fail the match; the value read is then the type's
/// empty one. Members that nobody asks for are ignored; of members with the same name the last
/// one counts. A value that is not an object fails the match.
class JsonObjectReader {
 public:
  JsonObjectReader(JsonValue object, JsonMatch& match);

  [[nodiscard]] std::string text(std::string_view name) const;
  [[nodiscard]] double number(std::string_view name) const;
  [[nodiscard]] std::int64_t integer(std::string_view name) const;
  [[nodiscard]] bool boolean(std::string_view name) const;
  /// The member's value, to be read by another reader. A missing one reads as null, which no reader
  /// takes either.
  [[nodiscard]] JsonValue value(std::string_view name) const;

  [[nodiscard]] std::optional<std::string> optionalText(std::string_view name) const;
  [[nodiscard]] std::optional<double> optionalNumber(std::string_view name) const;
  [[nodiscard]] std::optional<std::int64_t> optionalInteger(std::string_view name) const;

 private:
  JsonValue object_;
  JsonMatch& match_;
};

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

/// The records of an array, in its order; fails the match when `array` is none. Reading stops at
/// the first failure.
template <class Record>
[[nodiscard]] std::vector<Record> readJsonArray(JsonValue array, JsonMatch& match,
                                                JsonRead<Record> read) {
  if (!array.isArray()) { match.fail(); }
  std::vector<Record> records;
  records.reserve(array.size());
  for (const JsonMember element : array) {
    if (match.failed()) { break; }
    records.push_back(read(element.value, match));
  }
  return records;
}

/// The records of an object whose names the document chooses; fails the match when `object` is
/// none. Every record must match; of those with the same name the last one counts.
template <class Record>
[[nodiscard]] std::map<std::string, Record, std::less<>> readJsonMap(JsonValue object,
                                                                     JsonMatch& match,
                                                                     JsonRead<Record> read) {
  if (!object.isObject()) { match.fail(); }
  std::map<std::string, Record, std::less<>> records;
  for (const JsonMember member : object) {
    if (match.failed()) { break; }
    // Names tend to come in order: the hint spares the search then.
    records.insert_or_assign(records.end(), std::string(member.name), read(member.value, match));
  }
  return records;
}
}  // namespace orvane
