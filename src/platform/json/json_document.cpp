#include "platform/json/json_document.h"
#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>
#include <nlohmann/json.hpp>

namespace orvane {
/// A stretch of a tree's text pool.
struct JsonSpan {
  std::uint32_t offset;
  std::uint32_t length;
};

/// `integer` is a whole number in the range of 64 bits, however it is written; `number` any other.
enum class JsonType : std::uint8_t { null, boolean, integer, number, text, array, object };

/// One value of a document. The nodes of a document lie in document order, so the children of a
/// container follow it directly and `end` leads from one child to the next.
struct JsonNode {
  union {
    bool boolean;
    std::int64_t integer;  ///< exact, for whole numbers in range
    double number;         ///< for all other numbers
    JsonSpan text;
    std::uint32_t childCount;
  };
  JsonSpan name;      ///< empty unless the node is the member of an object
  std::uint32_t end;  ///< the index behind the node and everything inside it
  JsonType type;
};

/// A whole document in two blocks of memory. There is nothing recursive in it, so neither its size
/// nor its depth matters to the stack.
struct JsonTree {
  std::vector<JsonNode> nodes;
  std::string pool;  ///< all names and texts, one after the other

  [[nodiscard]] std::string_view view(JsonSpan span) const {
    return std::string_view(pool).substr(span.offset, span.length);
  }
};

namespace {
constexpr std::size_t maximumDepth = 512;

// Far beyond any honest answer; what a hostile one may cost stays bounded in time and memory.
constexpr std::uint32_t mostEntries = 100'000;
constexpr std::size_t mostValues = 2'000'000;

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
    return fits();
  }

  bool boolean(bool value) override {
    append(JsonType::boolean).boolean = value;
    return fits();
  }

  bool number_integer(number_integer_t value) override {
    append(JsonType::integer).integer = value;
    return fits();
  }

  bool number_unsigned(number_unsigned_t value) override {
    if (std::in_range<std::int64_t>(value)) {
      append(JsonType::integer).integer = static_cast<std::int64_t>(value);
    } else {
      append(JsonType::number).number = static_cast<double>(value);
    }
    return fits();
  }

  // Digits alone arrive here only when they exceed 64 bits: rounding to a double must not bring
  // such a number (-9223372036854775809) back into the range. The written form serves for nothing
  // else, because the parser puts the C locale's decimal point into it.
  bool number_float(number_float_t value, const string_t& written) override {
    const bool isInRange = value >= integerMinimum && value < integerLimit;
    if (isInRange && std::trunc(value) == value && !isWrittenAsInteger(written)) {
      append(JsonType::integer).integer = static_cast<std::int64_t>(value);
    } else {
      append(JsonType::number).number = value;
    }
    return fits();
  }

  bool string(string_t& value) override {
    const JsonSpan text = keep(value);
    append(JsonType::text).text = text;
    return fits();
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
  [[nodiscard]] bool fits() const {
    return tree_.nodes.size() <= mostValues &&
           (open_.empty() || tree_.nodes[open_.back()].childCount <= mostEntries);
  }

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
    const bool isWithinLimits = fits();
    open_.push_back(static_cast<std::uint32_t>(tree_.nodes.size() - 1));
    return isWithinLimits;
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

JsonDocument::JsonDocument(std::unique_ptr<JsonTree> tree) : tree_(std::move(tree)) {}
JsonDocument::JsonDocument(JsonDocument&&) noexcept = default;
JsonDocument& JsonDocument::operator=(JsonDocument&&) noexcept = default;
JsonDocument::~JsonDocument() = default;

std::optional<JsonDocument> JsonDocument::parse(std::string_view text) {
  // The parser takes a NUL for the end of the text; in JSON it is nowhere allowed.
  if (text.size() > maximumTextSize || text.contains('\0')) { return std::nullopt; }
  auto tree = std::make_unique<JsonTree>();
  // Fits the documents of our sources: large ones grow no block more than once or twice.
  tree->nodes.reserve(std::min(text.size() / 16, mostValues) + 1);
  tree->pool.reserve(text.size() / 2);
  TreeBuilder builder(*tree);
  if (!nlohmann::json::sax_parse(text.begin(), text.end(), &builder)) { return std::nullopt; }
  return JsonDocument(std::move(tree));
}

JsonValue JsonDocument::root() const { return {tree_.get(), 0}; }

JsonValue JsonValue::null() {
  static const JsonTree tree{
      .nodes = {{.boolean = false, .name = {}, .end = 1, .type = JsonType::null}}, .pool = {}};
  return {&tree, 0};
}

const JsonNode& JsonValue::node() const { return tree_->nodes[node_]; }

bool JsonValue::isNull() const { return node().type == JsonType::null; }
bool JsonValue::isObject() const { return node().type == JsonType::object; }
bool JsonValue::isArray() const { return node().type == JsonType::array; }

std::optional<std::string_view> JsonValue::text() const {
  if (node().type != JsonType::text) { return std::nullopt; }
  return tree_->view(node().text);
}

std::optional<bool> JsonValue::boolean() const {
  if (node().type != JsonType::boolean) { return std::nullopt; }
  return node().boolean;
}

std::optional<double> JsonValue::number() const {
  if (node().type == JsonType::integer) { return static_cast<double>(node().integer); }
  if (node().type == JsonType::number) { return node().number; }
  return std::nullopt;
}

std::optional<std::int64_t> JsonValue::integer() const {
  if (node().type != JsonType::integer) { return std::nullopt; }
  return node().integer;
}

std::size_t JsonValue::size() const { return isObject() || isArray() ? node().childCount : 0; }

// A value without children ends right behind itself: its range is empty without a test.
JsonValue::Iterator JsonValue::begin() const { return {tree_, node_ + 1}; }
JsonValue::Iterator JsonValue::end() const { return {tree_, node().end}; }

JsonMember JsonValue::Iterator::operator*() const {
  return {.name = tree_->view(tree_->nodes[node_].name), .value = JsonValue(tree_, node_)};
}

JsonValue::Iterator& JsonValue::Iterator::operator++() {
  node_ = tree_->nodes[node_].end;
  return *this;
}

std::optional<JsonValue> JsonValue::last(std::string_view name) const {
  if (!isObject()) { return std::nullopt; }
  std::optional<JsonValue> found;
  const std::uint32_t behind = node().end;
  for (std::uint32_t member = node_ + 1; member != behind; member = tree_->nodes[member].end) {
    if (tree_->view(tree_->nodes[member].name) == name) { found = JsonValue(tree_, member); }
  }
  return found;
}
}  // namespace orvane
