#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
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

/// Records under names that a document chooses, in the order of the names; each name is there once.
template <class Record>
using NamedRecords = std::vector<std::pair<std::string, Record>>;

/// The place of the record with that name, or the end.
[[nodiscard]] auto findRecord(auto& records, std::string_view name) {
  const auto nameOf = [](const auto& record) -> std::string_view { return record.first; };
  const auto at = std::ranges::lower_bound(records, name, {}, nameOf);
  return at != records.end() && at->first == name ? at : records.end();
}

namespace detail {
/// Where in `names` the last of each name stands, in the order of the names.
[[nodiscard]] std::vector<std::size_t> lastOfEachName(const std::vector<std::string_view>& names);

template <class Record>
void sortByName(NamedRecords<Record>& records) {
  std::vector<std::string_view> names;
  names.reserve(records.size());
  for (const auto& [name, record] : records) {
    names.push_back(name);
  }
  NamedRecords<Record> sorted;
  sorted.reserve(records.size());
  for (const std::size_t place : lastOfEachName(names)) {
    sorted.push_back(std::move(records[place]));
  }
  records = std::move(sorted);
}
}  // namespace detail

/// The records of an object whose names the document chooses; fails the match when `object` is
/// none. Every record must match; of those with the same name the last one counts.
template <class Record>
[[nodiscard]] NamedRecords<Record> readJsonMembers(JsonValue object, JsonMatch& match,
                                                   JsonRead<Record> read) {
  if (!object.isObject()) { match.fail(); }
  NamedRecords<Record> records;
  records.reserve(object.size());
  for (const JsonMember member : object) {
    if (match.failed()) { break; }
    records.emplace_back(std::string(member.name), read(member.value, match));
  }
  // Names tend to come in order, and once.
  constexpr auto name = &std::pair<std::string, Record>::first;
  const auto isInOrder =
      std::ranges::adjacent_find(records, std::ranges::greater_equal(), name) == records.end();
  if (!isInOrder) { detail::sortByName(records); }
  return records;
}
}  // namespace orvane
