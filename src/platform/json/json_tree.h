#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {
/// A stretch of a tree's text.
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

/// A whole document in two blocks of memory. There is nothing recursive in it, so its size does not
/// matter to the stack.
struct JsonTree {
  std::string text;  ///< names and texts lie where they stand, with their escapes written out
  std::vector<JsonNode> nodes;

  [[nodiscard]] std::string_view view(JsonSpan span) const {
    return std::string_view(text).substr(span.offset, span.length);
  }
};

/// The tree of a JSON text; null when `text` is none, as `JsonDocument` understands it.
[[nodiscard]] std::unique_ptr<JsonTree> readJsonTree(std::string_view text);
}  // namespace orvane
