#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include "platform/async/executor.h"
#include "platform/desktop/qt/qt_desktop_application.h"
#include "shell/menu_bar/background_runtime.h"

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
inline constexpr std::string_view paymentsSceneId = "balance-payments";

/// The title by which every part finds the main window; the application's name.
inline constexpr std::string_view mainWindowTitle = "Orvane";

inline constexpr std::array windowScenes{
    WindowScene{.id = mainSceneId, .title = mainWindowTitle, .defaultSize = SceneSize{640, 860}},
    WindowScene{.id = helpSceneId, .title = "Orvane Help", .defaultSize = SceneSize{720, 650}},
    WindowScene{.id = aboutSceneId, .title = "About Orvane", .defaultSize = {}},
    WindowScene{.id = paymentsSceneId, .title = "Payments", .defaultSize = SceneSize{720, 420}}};

/// Nothing when there is no such window.
[[nodiscard]] constexpr const WindowScene* findScene(std::string_view id) {
  for (const auto& scene : windowScenes) {
    if (scene.id == id) { return &scene; }
  }
  return nullptr;
}

/// Brings the window of a scene forward, by the scene's id.
using OpenWindow = std::function<void(std::string_view id)>;

/// Makes the windows of the scenes, each when it is first needed, and brings them forward. Main
/// thread only.
class SceneWindows {
 public:
  /// Builds the content of a scene.
  using MakeContent = std::function<std::unique_ptr<QWidget>(const WindowScene& scene)>;

  /// `application` and `executor` outlive this object; the windows are the application's.
  SceneWindows(QtDesktopApplication& application, Executor& executor,
               std::shared_ptr<BackgroundRuntime> runtime, MakeContent makeContent);

  /// Makes the window unless it exists. Nothing when there is no such scene.
  DesktopWindow* prepare(std::string_view id);
  /// Makes the window if necessary and brings it in front of the application's others; an unknown
  /// id is ignored.
  void open(std::string_view id);

 private:
  DesktopWindow& make(const WindowScene& scene);
  void placeOverMainWindow(QWidget& frame) const;

  QtDesktopApplication& application_;
  Executor& executor_;
  std::shared_ptr<BackgroundRuntime> runtime_;
  MakeContent makeContent_;
  std::map<std::string, DesktopWindow*, std::less<>> windows_;
};
}  // namespace orvane
