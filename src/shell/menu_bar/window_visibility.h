#pragma once

#include <functional>
#include <memory>
#include <utility>
#include "platform/desktop/desktop_application.h"
#include "shell/menu_bar/background_runtime.h"

namespace orvane {
/// Decides whether a help or about window shows its content: only while the window is on screen
/// and the application does not live in the status area alone.
class WindowVisibility {
 public:
  /// `onChange` hears every change of `showsContent`.
  WindowVisibility(std::shared_ptr<BackgroundRuntime> runtime, std::function<void()> onChange)
      : runtime_(std::move(runtime)),
        onChange_(std::move(onChange)),
        menuBarOnly_(runtime_->isMenuBarOnly()),
        runtimeObserver_(runtime_->observe([this] { handleRuntimeChange(); })) {}

  /// The window that the content is in now; none changes nothing.
  void handleWindow(DesktopWindow* window) {
    if (!window) { return; }
    if (window != window_) {
      window_ = window;
      windowObserver_ = window->observe(
          [this](const WindowNotification& notification) { handleNotification(notification); });
    }
    setOnScreen(windowIsOnScreen() && !runtime_->isMenuBarOnly());
  }

  [[nodiscard]] bool showsContent() const { return onScreen_ && !runtime_->isMenuBarOnly(); }

 private:
  void handleRuntimeChange() {
    const bool menuBarOnly = runtime_->isMenuBarOnly();
    if (std::exchange(menuBarOnly_, menuBarOnly) == menuBarOnly) { return; }
    if (menuBarOnly) {
      setOnScreen(false);
    } else if (window_) {
      setOnScreen(windowIsOnScreen());
    }
  }

  void handleNotification(WindowNotification notification) {
    switch (notification) {
      case WindowNotification::didBecomeKey:
        if (!runtime_->isMenuBarOnly()) { setOnScreen(true); }
        break;
      case WindowNotification::willClose:
      case WindowNotification::didMiniaturize:
        setOnScreen(false);
        break;
      case WindowNotification::didDeminiaturize:
        if (!runtime_->isMenuBarOnly()) { setOnScreen(window_->isVisible()); }
        break;
    }
  }

  void setOnScreen(bool onScreen) {
    if (std::exchange(onScreen_, onScreen) != onScreen) { onChange_(); }
  }

  [[nodiscard]] bool windowIsOnScreen() const {
    return window_->isVisible() && !window_->isMiniaturized();
  }

  std::shared_ptr<BackgroundRuntime> runtime_;
  std::function<void()> onChange_;
  bool onScreen_ = false;
  bool menuBarOnly_;
  DesktopWindow* window_ = nullptr;
  Registration windowObserver_;
  Registration runtimeObserver_;
};
}  // namespace orvane
