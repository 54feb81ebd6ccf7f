#include "platform/json/json_document.h"
#include <utility>
#include "platform/json/json_tree.h"

namespace orvane {
JsonDocument::JsonDocument(std::unique_ptr<JsonTree> tree) : tree_(std::move(tree)) {}
JsonDocument::JsonDocument(JsonDocument&&) noexcept = default;
JsonDocument& JsonDocument::operator=(JsonDocument&&) noexcept = default;
JsonDocument::~JsonDocument() = default;

std::optional<JsonDocument> JsonDocument::parse(std::string_view text) {
  std::unique_ptr<JsonTree> tree = readJsonTree(text);
  return tree ? std::optional(JsonDocument(std::move(tree))) : std::nullopt;
}

JsonValue JsonDocument::root() const { return {tree_.get(), 0}; }

JsonValue JsonValue::null() {
  static const JsonTree tree{
      .text = {}, .nodes = {{.boolean = false, .name = {}, .end = 1, .type = JsonType::null}}};
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
