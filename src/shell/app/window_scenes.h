#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace orvane {

struct SceneSize {
  int width;
  int height;
};

/// One of the application's windows. Each exists at most once.
struct WindowScene {
  std::string_view id;
  std::string_view title;
  std::optional<SceneSize> defaultSize;  ///< nothing: as large as its content, and not resizable
};

inline constexpr std::string_view mainSceneId = "balance-main";
inline constexpr std::string_view helpSceneId = "balance-help";
inline constexpr std::string_view aboutSceneId = "balance-about";

/// The title by which every part finds the main window; the application's name.
inline constexpr std::string_view mainWindowTitle = "Orvane";

inline constexpr std::array windowScenes{
    WindowScene{.id = mainSceneId, .title = mainWindowTitle, .defaultSize = SceneSize{640, 860}},
    WindowScene{.id = helpSceneId, .title = "Orvane Help", .defaultSize = SceneSize{720, 650}},
    WindowScene{.id = aboutSceneId, .title = "About Orvane", .defaultSize = {}}};

/// Nothing when there is no such window.
[[nodiscard]] constexpr const WindowScene* findScene(std::string_view id) {
  for (const auto& scene : windowScenes) {
    if (scene.id == id) { return &scene; }
  }
  return nullptr;
}

}  // namespace orvane
