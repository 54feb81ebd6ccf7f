#include "platform/json/json_reader.h"
#include <algorithm>
#include <numeric>
#include <tuple>

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
}  // namespace

std::vector<std::size_t> detail::lastOfEachName(const std::vector<std::string_view>& names) {
  std::vector<std::size_t> order(names.size());
  std::iota(order.begin(), order.end(), 0);
  std::ranges::sort(order, [&names](std::size_t a, std::size_t b) {
    return std::tie(names[a], b) < std::tie(names[b], a);  // the last of a name first
  });
  const auto rest = std::ranges::unique(order, {}, [&names](std::size_t at) { return names[at]; });
  order.erase(rest.begin(), rest.end());
  return order;
}

JsonObjectReader::JsonObjectReader(JsonValue object, JsonMatch& match)
    : object_(object), match_(match) {
  if (!object.isObject()) { match.fail(); }
}

std::string JsonObjectReader::text(std::string_view name) const {
  return std::string(readRequired(object_.last(name), match_, &JsonValue::text));
}
double JsonObjectReader::number(std::string_view name) const {
  return readRequired(object_.last(name), match_, &JsonValue::number);
}
std::int64_t JsonObjectReader::integer(std::string_view name) const {
  return readRequired(object_.last(name), match_, &JsonValue::integer);
}
bool JsonObjectReader::boolean(std::string_view name) const {
  return readRequired(object_.last(name), match_, &JsonValue::boolean);
}
JsonValue JsonObjectReader::value(std::string_view name) const {
  const JsonValue member = object_.last(name).value_or(JsonValue::null());
  if (member.isNull()) { match_.fail(); }
  return member;
}

std::optional<std::string> JsonObjectReader::optionalText(std::string_view name) const {
  return std::optional<std::string>(readOptional(object_.last(name), match_, &JsonValue::text));
}
std::optional<double> JsonObjectReader::optionalNumber(std::string_view name) const {
  return readOptional(object_.last(name), match_, &JsonValue::number);
}
std::optional<std::int64_t> JsonObjectReader::optionalInteger(std::string_view name) const {
  return readOptional(object_.last(name), match_, &JsonValue::integer);
}
}  // namespace orvane
