#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace orvane {
class JsonValue;
struct JsonNode;
struct JsonTree;

/// A parsed JSON text. Parsing is strict: the whole text is one value, strings are valid UTF-8,
/// nesting is at most 512 levels deep, numbers fit a double, an array or object has at most 100,000
/// entries and the whole text two million values. A byte-order mark before the value is skipped.
/// Parsing never throws.
class JsonDocument {
 public:
  /// Nothing when `text` is not such a JSON text. The document does not refer to `text`.
  [[nodiscard]] static std::optional<JsonDocument> parse(std::string_view text);

  JsonDocument(JsonDocument&&) noexcept;
  JsonDocument& operator=(JsonDocument&&) noexcept;
  ~JsonDocument();

  [[nodiscard]] JsonValue root() const;

 private:
  explicit JsonDocument(std::unique_ptr<JsonTree> tree);
  std::unique_ptr<JsonTree> tree_;
};

/// One member of an object or one element of an array (its name is then empty).
struct JsonMember;

/// A value inside a document; a cheap handle that is valid while its document lives. The typed
/// reads give nothing when the value is of another type.
class JsonValue {
 public:
  /// A null that belongs to no document and is always valid.
  [[nodiscard]] static JsonValue null();

  [[nodiscard]] bool isNull() const;
  [[nodiscard]] bool isObject() const;
  [[nodiscard]] bool isArray() const;
  [[nodiscard]] std::optional<std::string_view> text() const;
  [[nodiscard]] std::optional<bool> boolean() const;
  /// Any JSON number.
  [[nodiscard]] std::optional<double> number() const;
  /// A whole number in the range of 64 bits with sign, however it is written (1e3 is 1000). One
  /// with a fraction or an exponent is judged by the double nearest to it.
  [[nodiscard]] std::optional<std::int64_t> integer() const;

  /// The number of members or elements; 0 for other types.
  [[nodiscard]] std::size_t size() const;

  /// The member of an object by its name; of members with the same name the last one.
  [[nodiscard]] std::optional<JsonValue> last(std::string_view name) const;

  /// Iterates over the members of an object or the elements of an array, in document order.
  /// Of members with the same name every one is visited.
  class Iterator;
  [[nodiscard]] Iterator begin() const;
  [[nodiscard]] Iterator end() const;

 private:
  friend class JsonDocument;
  friend class Iterator;
  JsonValue(const JsonTree* tree, std::uint32_t node) : tree_(tree), node_(node) {}
  [[nodiscard]] const JsonNode& node() const;

  const JsonTree* tree_;
  std::uint32_t node_;
};

struct JsonMember {
  std::string_view name;
  JsonValue value;
};

class JsonValue::Iterator {
 public:
  JsonMember operator*() const;
  Iterator& operator++();
  bool operator==(const Iterator& other) const { return node_ == other.node_; }

 private:
  friend class JsonValue;
  Iterator(const JsonTree* tree, std::uint32_t node) : tree_(tree), node_(node) {}
  const JsonTree* tree_;
  std::uint32_t node_;
};
}  // namespace orvane
