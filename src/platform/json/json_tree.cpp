#include "platform/json/json_tree.h"
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <utility>
#include <locale.h>
#include <simdjson.h>

// The parser first notes where in the text each token starts, and then gives the values one after
// the other, as they are asked for. It checks only what it is asked for. So everything is asked for
// here, once and in the order of the text: when the tree is there, the whole text has been checked.

namespace orvane {
namespace ondemand = simdjson::ondemand;

namespace {
constexpr std::size_t maximumDepth = 512;

// Far beyond any honest answer; what a hostile one may cost stays bounded in time and memory.
constexpr std::uint32_t mostEntries = 100'000;
constexpr std::size_t mostValues = 2'000'000;

// Of a value these are five at the most: its name and a colon, two brackets, a comma.
constexpr std::size_t mostTokens = 5 * mostValues;

// Lengths and node indices have 32 bits, and so has what the parser allocates by.
constexpr std::size_t maximumTextSize = std::numeric_limits<std::uint32_t>::max() / 2;

// Both ends of the range of int64 as doubles. The upper one is the first value beyond the range.
constexpr double integerMinimum = -0x1p63;
constexpr double integerLimit = 0x1p63;

constexpr std::string_view whiteSpace = " \n\r\t";

/// Whether the first character of `rest` is one of `characters`; takes it away then.
bool takeOneOf(std::string_view characters, std::string_view& rest) {
  const bool isThere = !rest.empty() && characters.contains(rest.front());
  rest.remove_prefix(isThere ? 1 : 0);
  return isThere;
}

bool takeDigits(std::string_view& rest) {
  const bool isThere = takeOneOf("0123456789", rest);
  rest.remove_prefix(std::min(rest.find_first_not_of("0123456789"), rest.size()));
  return isThere;
}

bool isNumber(std::string_view rest) {
  takeOneOf("-", rest);
  if (!takeOneOf("0", rest) && !takeDigits(rest)) { return false; }
  if (takeOneOf(".", rest) && !takeDigits(rest)) { return false; }
  if (takeOneOf("eE", rest)) {
    takeOneOf("+-", rest);
    if (!takeDigits(rest)) { return false; }
  }
  return rest.empty();
}

/// The double nearest to any number but a whole one of 64 bits. The parser's own reading is exact
/// up to 19 digits. Of longer numbers version 3.0 makes others (of 0.0000922337203685477580800000
/// it makes 0), and 3.12 still refuses a zero with a long exponent.
std::optional<double> readNumber(ondemand::value& value, std::string_view written) {
  constexpr std::size_t mostExactDigits = 19;
  double nearest = 0;
  if (written.size() <= mostExactDigits) {
    return value.get_double().get(nearest) ? std::nullopt : std::optional(nearest);
  }
  if (!isNumber(written)) { return std::nullopt; }
  static const locale_t withDecimalPoint = newlocale(LC_ALL_MASK, "C", nullptr);
  nearest = strtod_l(std::string(written).c_str(), nullptr, withDecimalPoint);
  return std::isfinite(nearest) ? std::optional(nearest) : std::nullopt;
}

/// Appends the nodes of values. Every step answers whether to go on. It calls itself for what is
/// nested, and so no deeper than `maximumDepth`.
class TreeBuilder {
 public:
  TreeBuilder(const ondemand::parser& parser, JsonTree& tree) : parser_(parser), tree_(tree) {}

  bool add(ondemand::value& value, JsonSpan name) {
    std::vector<JsonNode>& nodes = tree_.nodes;
    ondemand::json_type type;
    if (nodes.size() == mostValues || value.type().get(type)) { return false; }
    JsonNode& node = nodes.emplace_back();
    node.name = name;
    node.end = static_cast<std::uint32_t>(nodes.size());
    switch (type) {
      case ondemand::json_type::array:
        return addElements(value);
      case ondemand::json_type::object:
        return addMembers(value);
      case ondemand::json_type::number:
        return addNumber(value, node);
      case ondemand::json_type::string:
        return addText(value, node);
      case ondemand::json_type::boolean:
        node.type = JsonType::boolean;
        return !value.get_bool().get(node.boolean);
      case ondemand::json_type::null:
        node.type = JsonType::null;
        return !value.is_null().get(node.boolean) && node.boolean;
      default:
        return false;  // later versions of the parser have a type for what is no value
    }
  }

 private:
  bool addElements(ondemand::value& value) {
    ondemand::array array;
    if (depth_ == maximumDepth || value.get_array().get(array)) { return false; }
    const std::size_t opened = open(JsonType::array);
    std::uint32_t count = 0;
    for (simdjson::simdjson_result<ondemand::value> next : array) {
      ondemand::value element;
      if (++count > mostEntries || next.get(element) || !add(element, {})) { return false; }
    }
    close(opened, count);
    return true;
  }

  bool addMembers(ondemand::value& value) {
    ondemand::object object;
    if (depth_ == maximumDepth || value.get_object().get(object)) { return false; }
    const std::size_t opened = open(JsonType::object);
    std::uint32_t count = 0;
    for (simdjson::simdjson_result<ondemand::field> next : object) {
      ondemand::field member;
      if (++count > mostEntries || std::move(next).get(member)) { return false; }
      ondemand::value& content = member.value();
      const auto name = keep(member.key(), content.raw_json_token());
      if (!name || !add(content, *name)) { return false; }
    }
    close(opened, count);
    return true;
  }

  std::size_t open(JsonType type) {
    ++depth_;
    tree_.nodes.back().type = type;
    return tree_.nodes.size() - 1;
  }

  void close(std::size_t opened, std::uint32_t count) {
    --depth_;
    tree_.nodes[opened].childCount = count;
    tree_.nodes[opened].end = static_cast<std::uint32_t>(tree_.nodes.size());
  }

  /// Writes the escapes of the text out, in its own place, as it does not become longer. `behind`
  /// is somewhere behind its closing quote and before the next one.
  std::optional<JsonSpan> keep(ondemand::raw_json_string raw, std::string_view behind) {
    std::string_view written(raw.raw(), static_cast<std::size_t>(behind.data() - raw.raw()));
    written = written.substr(0, written.rfind('"'));
    const auto offset = static_cast<std::size_t>(written.data() - tree_.text.data());
    if (written.contains('\\')) {
      unescaped_.resize(std::max(unescaped_.size(), written.size() + simdjson::SIMDJSON_PADDING));
      std::uint8_t* end = unescaped_.data();
      if (parser_.unescape(raw, end).get(written)) { return std::nullopt; }
      std::ranges::copy(written, tree_.text.begin() + static_cast<std::ptrdiff_t>(offset));
    }
    return JsonSpan{.offset = static_cast<std::uint32_t>(offset),
                    .length = static_cast<std::uint32_t>(written.size())};
  }

  static bool addNumber(ondemand::value& value, JsonNode& node) {
    if (!value.get_int64().get(node.integer)) {
      node.type = JsonType::integer;
      return true;
    }
    std::string_view written = value.raw_json_token();
    written = written.substr(0, written.find_last_not_of(whiteSpace) + 1);
    const std::optional<double> nearest = readNumber(value, written);
    if (!nearest) { return false; }
    // Digits alone exceed the range here: rounding to a double must not bring such a number
    // (-9223372036854775809) back into it.
    if (*nearest >= integerMinimum && *nearest < integerLimit && std::trunc(*nearest) == *nearest &&
        written.find_first_of(".eE") != std::string_view::npos) {
      node.type = JsonType::integer;
      node.integer = static_cast<std::int64_t>(*nearest);
    } else {
      node.type = JsonType::number;
      node.number = *nearest;
    }
    return true;
  }

  bool addText(ondemand::value& value, JsonNode& node) {
    const std::string_view written = value.raw_json_token();
    ondemand::raw_json_string raw;
    if (value.get_raw_json_string().get(raw)) { return false; }
    const auto text = keep(raw, written.substr(written.size()));
    node.type = JsonType::text;
    node.text = text.value_or(JsonSpan{});
    return text.has_value();
  }

  const ondemand::parser& parser_;
  JsonTree& tree_;
  std::vector<std::uint8_t> unescaped_;
  std::size_t depth_ = 0;  ///< of the containers around the next value
};

// The parser's notes take four bytes a token before it gives the first value, so a text of nothing
// but tokens is refused before it notes any. Tokens are counted as it counts them, without a look
// at grammar: marks (brackets, commas and colons) and the first characters of everything else.

bool isMark(char c) {
  c |= 0x20;  // makes braces of brackets, and marks of two control characters: so does the parser
  return c == '{' || c == '}' || c == ',' || c == ':';
}

/// Whether a token starts with `c`, unless that is inside a text.
bool startsToken(char before, char c) {
  return isMark(c) || (!whiteSpace.contains(c) &&
                       (isMark(before) || before == '"' || whiteSpace.contains(before)));
}

/// 1 for a character that is a token or may stand before one, else 0. Without branches, so that the
/// compiler can look at many characters at once.
std::uint8_t separates(unsigned char c) {
  return std::uint8_t(c <= '"') | std::uint8_t(c == ',') | std::uint8_t(c == ':') |
         std::uint8_t((c | 0x20) == '{') | std::uint8_t((c | 0x20) == '}');
}

/// Not less than the number of tokens, and fast.
std::size_t mostTokensIn(std::string_view text) {
  constexpr std::size_t blockSize = 255;  // what a byte can count
  std::size_t separators = 0;
  for (; !text.empty(); text.remove_prefix(std::min(blockSize, text.size()))) {
    std::uint8_t inBlock = 0;
    for (const char c : text.substr(0, blockSize)) {
      inBlock += separates(static_cast<unsigned char>(c));
    }
    separators += inBlock;
  }
  return 2 * separators + 1;
}

bool hasTooManyTokens(std::string_view text) {
  if (text.size() <= mostTokens || mostTokensIn(text) <= mostTokens) { return false; }
  std::size_t count = 0;
  bool isInText = false;
  bool isEscaped = false;
  char before = ' ';
  for (const char c : text) {
    if (!isInText && startsToken(before, c) && ++count > mostTokens) { return true; }
    if (c == '"' && !isEscaped) { isInText = !isInText; }
    isEscaped = c == '\\' && !isEscaped;
    before = c;
  }
  return false;
}

/// The text as the element of an array: to the parser a number, a text or a word is then like any
/// other value, also where the document is nothing else. Behind it is the room that it asks for.
std::string asElement(std::string_view text) {
  std::string array;
  array.reserve(text.size() + 2 + simdjson::SIMDJSON_PADDING);
  array += '[';
  array += text;
  array += ']';
  array.append(simdjson::SIMDJSON_PADDING, ' ');
  return array;
}

/// Makes the nodes of `tree` from its text, unless that is not an array with one element.
bool buildNodes(JsonTree& tree) {
  const simdjson::padded_string_view array(
      tree.text.data(), tree.text.size() - simdjson::SIMDJSON_PADDING, tree.text.size());
  ondemand::parser parser;
  ondemand::document document;
  ondemand::array elements;
  if (parser.iterate(array).get(document) || document.get_array().get(elements)) { return false; }
  TreeBuilder builder(parser, tree);
  std::size_t count = 0;
  for (simdjson::simdjson_result<ondemand::value> next : elements) {
    ondemand::value element;
    if (++count > 1 || next.get(element) || !builder.add(element, {})) { return false; }
  }
  const bool isAtEnd = document.current_location().error() == simdjson::OUT_OF_BOUNDS;
  return count == 1 && isAtEnd;
}
}  // namespace

std::unique_ptr<JsonTree> readJsonTree(std::string_view text) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(byteOrderMark)) { text.remove_prefix(byteOrderMark.size()); }
  if (text.size() > maximumTextSize || hasTooManyTokens(text)) { return nullptr; }
  auto tree = std::make_unique<JsonTree>(asElement(text));
  // Fits the documents of our sources: large ones grow the block no more than once or twice.
  tree->nodes.reserve(std::min(text.size() / 16, mostValues) + 1);
  return buildNodes(*tree) ? std::move(tree) : nullptr;
}
}  // namespace orvane
