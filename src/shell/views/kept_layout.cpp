#include "shell/views/kept_layout.h"
#include <charconv>
#include <optional>
#include <string>
#include <utility>

namespace orvane {
namespace {
constexpr std::string_view sizeKey = "window.size";      // width and height; "": the program's own
constexpr std::string_view centreKey = "window.centre";  // across and down, in the desktop's pixels
constexpr std::string_view historyColumnsKey = "history.columnWidths";

using Texts = std::vector<std::string>;

/// Window systems count to no more.
constexpr int farthest = 32'767;

std::optional<int> number(const std::string& text, int least) {
  int value = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, value);
  const bool isNumber = error == std::errc() && rest == end;
  return isNumber && value >= least && value <= farthest ? std::optional(value) : std::nullopt;
}

using Pair = std::pair<std::optional<int>, std::optional<int>>;

Pair pair(const UserDefaults& defaults, std::string_view key, int least) {
  const auto texts = defaults.texts(key);
  if (!texts || texts->size() != 2) { return {}; }
  return {number(texts->front(), least), number(texts->back(), least)};
}

void setPair(UserDefaults& defaults, std::string_view key, const Pair& pair) {
  const auto text = [](std::optional<int> each) { return each ? std::to_string(*each) : ""; };
  const Texts texts{text(pair.first), text(pair.second)};
  if (defaults.texts(key) != texts) { defaults.setTexts(key, texts); }
}
}  // namespace

ChosenPlacement KeptLayout::placement() const {
  const auto [width, height] = pair(defaults_, sizeKey, 1);
  const auto [across, down] = pair(defaults_, centreKey, -farthest);
  const bool hasCentre = across && down;
  return {.width = width,
          .height = height,
          .centre = hasCentre ? std::optional(QPoint(*across, *down)) : std::nullopt};
}

void KeptLayout::setPlacement(const ChosenPlacement& placement) {
  if (placement.width || placement.height) {
    setPair(defaults_, sizeKey, {placement.width, placement.height});
  }
  if (const auto centre = placement.centre) {
    setPair(defaults_, centreKey, {centre->x(), centre->y()});
  }
}

std::vector<int> KeptLayout::historyColumns() const {
  std::vector<int> widths;
  for (const std::string& text : defaults_.texts(historyColumnsKey).value_or(Texts())) {
    const auto width = number(text, 1);
    if (!width) { return {}; }
    widths.push_back(*width);
  }
  return widths;
}

void KeptLayout::setHistoryColumns(const std::vector<int>& widths) {
  Texts texts;
  for (const int width : widths) {
    texts.push_back(std::to_string(width));
  }
  if (defaults_.texts(historyColumnsKey) != texts) { defaults_.setTexts(historyColumnsKey, texts); }
}
}  // namespace orvane
