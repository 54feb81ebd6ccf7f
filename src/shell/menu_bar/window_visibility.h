#pragma once

#include <functional>
#include <memory>

#include "platform/desktop/desktop_application.h"
#include "shell/menu_bar/background_runtime.h"

namespace orvane {

/// Decides whether a help or about window shows its content: only while the window is on screen
/// and the application does not live in the status area alone.
class WindowVisibility {
 public:
  /// `onChange` hears every change of `showsContent`.
  WindowVisibility(std::shared_ptr<BackgroundRuntime> runtime, std::function<void()> onChange);

  /// The window that the content is in now; none changes nothing.
  void handleWindow(DesktopWindow* window);
  [[nodiscard]] bool showsContent() const;

 private:
  void handleRuntimeChange();
  void handleNotification(WindowNotification notification);
  void setOnScreen(bool onScreen);
  [[nodiscard]] bool windowIsOnScreen() const;

  std::shared_ptr<BackgroundRuntime> runtime_;
  std::function<void()> onChange_;
  bool onScreen_ = false;
  bool menuBarOnly_;
  DesktopWindow* window_ = nullptr;
  Registration windowObserver_;
  Registration runtimeObserver_;
};

}  // namespace orvane
