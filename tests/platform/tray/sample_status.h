#pragma once

#include <algorithm>
#include <cmath>
#include "platform/tray/status_item.h"

namespace orvane::test {
/// A green symbol with a text beside it, as large as `bar` measures them.
inline StatusImage sampleImage(const StatusBar& bar, const std::string& text) {
  StatusImage image{.symbolName = "chart.line.uptrend.xyaxis",
                    .symbolColor = StatusColor::systemGreen,
                    .text = text,
                    .size = {},
                    .accessibilityDescription = "Orvane " + text};
  const auto symbol = bar.symbolSize(image.symbolName, image.symbolPointSize).value_or(PointSize{});
  const auto measured = bar.textSize(text, image.textPointSize);
  image.size = {.width = symbol.width + 3 + std::ceil(measured.width),
                .height = std::max({18.0, symbol.height, measured.height})};
  return image;
}

/// Rows like those that the program shows; `chosen` hears the title of the one that was chosen.
inline Menu sampleMenu(const std::string& balance,
                       const std::function<void(const std::string& title)>& chosen) {
  const auto row = [&](const std::string& title, const std::string& key = {}) {
    return MenuItem{
        .title = title, .keyEquivalent = key, .action = [chosen, title] { chosen(title); }};
  };
  return {.items = {{.title = "Balance " + balance, .enabled = false},
                    {.title = "Today 815 sats", .enabled = false},
                    MenuItem::separator(),
                    row("Open Orvane"),
                    row("Refresh Now", "r"),
                    row("Quit Orvane", "q")}};
}

/// Shows a sample with `text` and hands out `menu` as the program does: set, clicked, removed
/// again.
inline void useItem(StatusItem& item, const StatusBar& bar, const std::string& text,
                    std::function<void()> clicked, std::function<Menu()> menu) {
  item.setAction([&item, clicked, menu](const std::optional<DesktopEvent>& event) {
    if (!event || event->type != DesktopEvent::Type::rightMouseUp) { return clicked(); }
    item.setMenu(menu());
    item.performClick();
    item.setMenu(std::nullopt);
  });
  item.setImage(sampleImage(bar, text));
  item.setToolTip("Orvane · Balance " + text);
}
}  // namespace orvane::test
