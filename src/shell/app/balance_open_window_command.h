#pragma once

#include <string>
#include <string_view>

#include "platform/desktop/desktop_application.h"
#include "platform/desktop/menu.h"
#include "shell/app/scene_windows.h"
#include "shell/app/window_scenes.h"

namespace orvane {

/// A command that opens a window of the application and brings the application to the front.
struct BalanceOpenWindowCommand {
  std::string_view title;
  std::string_view id;  ///< of the window's scene
  std::string_view keyEquivalent = {};

  /// The command as a menu's row. `windows` and `application` outlive it.
  [[nodiscard]] MenuItem menuItem(SceneWindows& windows, DesktopApplication& application) const {
    return {.title = std::string(title),
            .keyEquivalent = std::string(keyEquivalent),
            .action = [&windows, &application, opened = id] {
              windows.open(opened);
              application.activateIgnoringOtherApps();
            }};
  }
};

inline constexpr BalanceOpenWindowCommand aboutCommand{.title = "About Orvane", .id = aboutSceneId};
inline constexpr BalanceOpenWindowCommand helpCommand{
    .title = "Orvane Help", .id = helpSceneId, .keyEquivalent = "?"};

}  // namespace orvane
