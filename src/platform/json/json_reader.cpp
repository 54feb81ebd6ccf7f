#include "platform/json/json_reader.h"

namespace orvane {

namespace {

/// What an optional member reads as: nothing when it is missing or null, a failed match when it is
/// of another type than `read` gives.
template <class T>
std::optional<T> readOptional(const std::optional<JsonValue>& member, JsonMatch& match,
                              std::optional<T> (JsonValue::*read)() const) {
  if (!member || member->isNull()) { return std::nullopt; }
  std::optional<T> value = ((*member).*read)();
  if (!value) { match.fail(); }
  return value;
}

/// What a required member reads as: its type's empty value when the match fails.
template <class T>
T readRequired(const std::optional<JsonValue>& member, JsonMatch& match,
               std::optional<T> (JsonValue::*read)() const) {
  const std::optional<T> value = readOptional(member, match, read);
  if (!value) { match.fail(); }
  return value.value_or(T{});
}

std::optional<std::string> copied(std::optional<std::string_view> view) {
  return view ? std::optional<std::string>(*view) : std::nullopt;
}

}  // namespace

JsonObjectReader::JsonObjectReader(JsonValue object, JsonMatch& match)
    : object_(object), match_(match) {
  if (!object.isObject()) { match.fail(); }
}

std::string JsonObjectReader::text(std::string_view name) const {
  return std::string(readRequired(find(name), match_, &JsonValue::text));
}

double JsonObjectReader::number(std::string_view name) const {
  return readRequired(find(name), match_, &JsonValue::number);
}

std::int64_t JsonObjectReader::integer(std::string_view name) const {
  return readRequired(find(name), match_, &JsonValue::integer);
}

bool JsonObjectReader::boolean(std::string_view name) const {
  return readRequired(find(name), match_, &JsonValue::boolean);
}

JsonValue JsonObjectReader::value(std::string_view name) const {
  const JsonValue member = find(name).value_or(JsonValue::null());
  if (member.isNull()) { match_.fail(); }
  return member;
}

std::optional<std::string> JsonObjectReader::optionalText(std::string_view name) const {
  return copied(optionalTextView(name));
}

std::optional<std::string_view> JsonObjectReader::optionalTextView(std::string_view name) const {
  return readOptional(find(name), match_, &JsonValue::text);
}

std::optional<double> JsonObjectReader::optionalNumber(std::string_view name) const {
  return readOptional(find(name), match_, &JsonValue::number);
}

std::optional<std::int64_t> JsonObjectReader::optionalInteger(std::string_view name) const {
  return readOptional(find(name), match_, &JsonValue::integer);
}

std::optional<JsonValue> JsonObjectReader::find(std::string_view name) const {
  return object_.last(name);
}

JsonValue arrayElements(JsonValue value, JsonMatch& match) {
  if (value.isArray()) { return value; }
  match.fail();
  return JsonValue::null();
}

JsonValue objectMembers(JsonValue value, JsonMatch& match) {
  if (value.isObject()) { return value; }
  match.fail();
  return JsonValue::null();
}

}  // namespace orvane
