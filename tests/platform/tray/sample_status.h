#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

#include "platform/tray/status_item.h"

namespace orvane::test {

inline constexpr const char* sampleSymbol = "chart.line.uptrend.xyaxis";

/// A green symbol with a text beside it, as large as `bar` measures them.
inline StatusImage sampleImage(const StatusBar& bar, const std::string& text) {
  StatusImage image{.symbolName = sampleSymbol,
                    .symbolColor = StatusColor::systemGreen,
                    .text = text,
                    .size = {},
                    .accessibilityDescription = "Orvane " + text};
  const auto symbol = bar.symbolSize(sampleSymbol, image.symbolPointSize).value_or(PointSize{});
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

/// Hands out `menu` as the program does: set, clicked, removed again.
inline StatusItem::Action actionOn(StatusItem& item, std::function<void()> clicked,
                                   std::function<std::optional<Menu>()> menu) {
  return [&item, clicked = std::move(clicked),
          menu = std::move(menu)](const std::optional<DesktopEvent>& event) {
    if (!event || event->type != DesktopEvent::Type::rightMouseUp) {
      clicked();
      return;
    }
    item.setMenu(menu());
    item.performClick();
    item.setMenu(std::nullopt);
  };
}

}  // namespace orvane::test
