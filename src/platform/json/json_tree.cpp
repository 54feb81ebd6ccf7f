#include "platform/json/json_tree.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <nlohmann/json.hpp>

namespace orvane {
namespace {

constexpr std::size_t maximumDepth = 512;

// Offsets and node indices have 32 bits; no text yields more nodes than it has characters.
constexpr std::size_t maximumTextSize = std::numeric_limits<std::uint32_t>::max() - 1;

// Both ends of the range of int64 as doubles. The upper one is the first value beyond the range.
constexpr double integerMinimum = -0x1p63;
constexpr double integerLimit = 0x1p63;

bool isWrittenAsInteger(std::string_view number) {
  return std::ranges::all_of(number, [](char c) { return c == '-' || (c >= '0' && c <= '9'); });
}

/// Receives the parser's events and appends the nodes they stand for. Every event answers whether
/// to go on.
class TreeBuilder final : public nlohmann::json_sax<nlohmann::json> {
 public:
  explicit TreeBuilder(JsonTree& tree) : tree_(tree) {}

  bool null() override {
    append(JsonType::null);
    return true;
  }

  bool boolean(bool value) override {
    append(JsonType::boolean).boolean = value;
    return true;
  }

  bool number_integer(number_integer_t value) override {
    append(JsonType::integer).integer = value;
    return true;
  }

  bool number_unsigned(number_unsigned_t value) override {
    if (std::in_range<std::int64_t>(value)) {
      append(JsonType::integer).integer = static_cast<std::int64_t>(value);
    } else {
      append(JsonType::number).number = static_cast<double>(value);
    }
    return true;
  }

  // Digits alone arrive here only when they exceed 64 bits: rounding to a double must not bring
  // such a number (-9223372036854775809) back into the range. The written form serves for nothing
  // else, because the parser puts the C locale's decimal point into it.
  bool number_float(number_float_t value, const string_t& written) override {
    const bool fits = value >= integerMinimum && value < integerLimit;
    if (fits && std::trunc(value) == value && !isWrittenAsInteger(written)) {
      append(JsonType::integer).integer = static_cast<std::int64_t>(value);
    } else {
      append(JsonType::number).number = value;
    }
    return true;
  }

  bool string(string_t& value) override {
    const JsonSpan text = keep(value);
    append(JsonType::text).text = text;
    return true;
  }

  // Only the binary formats of the parser have these.
  bool binary(binary_t& /*value*/) override { return false; }

  bool start_object(std::size_t /*size*/) override { return open(JsonType::object); }
  bool end_object() override { return close(); }
  bool start_array(std::size_t /*size*/) override { return open(JsonType::array); }
  bool end_array() override { return close(); }

  bool key(string_t& value) override {
    name_ = keep(value);
    return true;
  }

  bool parse_error(std::size_t /*position*/, const std::string& /*lastToken*/,
                   const nlohmann::detail::exception& /*error*/) override {
    return false;
  }

 private:
  JsonNode& append(JsonType type) {
    if (!open_.empty()) { ++tree_.nodes[open_.back()].childCount; }
    JsonNode& node = tree_.nodes.emplace_back();
    node.name = std::exchange(name_, {});
    node.end = static_cast<std::uint32_t>(tree_.nodes.size());
    node.type = type;
    return node;
  }

  bool open(JsonType type) {
    if (open_.size() == maximumDepth) { return false; }
    append(type).childCount = 0;
    open_.push_back(static_cast<std::uint32_t>(tree_.nodes.size() - 1));
    return true;
  }

  bool close() {
    tree_.nodes[open_.back()].end = static_cast<std::uint32_t>(tree_.nodes.size());
    open_.pop_back();
    return true;
  }

  JsonSpan keep(std::string_view text) {
    const JsonSpan span{.offset = static_cast<std::uint32_t>(tree_.pool.size()),
                        .length = static_cast<std::uint32_t>(text.size())};
    tree_.pool.append(text);
    return span;
  }

  JsonTree& tree_;
  std::vector<std::uint32_t> open_;  ///< the containers around the next value, outermost first
  JsonSpan name_ = {};               ///< the name of the next value
};

}  // namespace

std::optional<JsonTree> parseJsonTree(std::string_view text) {
  // The parser takes a NUL for the end of the text; in JSON it is nowhere allowed.
  if (text.size() > maximumTextSize || text.contains('\0')) { return std::nullopt; }
  JsonTree tree;
  // Fits the documents of our sources: large ones grow no block more than once or twice.
  tree.nodes.reserve(text.size() / 16 + 1);
  tree.pool.reserve(text.size() / 2);
  TreeBuilder builder(tree);
  if (!nlohmann::json::sax_parse(text.begin(), text.end(), &builder)) { return std::nullopt; }
  return tree;
}

}  // namespace orvane
