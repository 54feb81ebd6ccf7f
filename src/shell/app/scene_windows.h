#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/async/executor.h"
#include "platform/desktop/desktop_window.h"
#include "platform/desktop/qt/qt_desktop_application.h"
#include "shell/app/window_scenes.h"
#include "shell/menu_bar/background_runtime.h"

namespace orvane {

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
