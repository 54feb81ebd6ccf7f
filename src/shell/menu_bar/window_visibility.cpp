#include "shell/menu_bar/window_visibility.h"

#include <utility>

namespace orvane {

WindowVisibility::WindowVisibility(std::shared_ptr<BackgroundRuntime> runtime,
                                   std::function<void()> onChange)
    : runtime_(std::move(runtime)),
      onChange_(std::move(onChange)),
      menuBarOnly_(runtime_->isMenuBarOnly()),
      runtimeObserver_(runtime_->observe([this] { handleRuntimeChange(); })) {}

bool WindowVisibility::showsContent() const { return onScreen_ && !runtime_->isMenuBarOnly(); }

void WindowVisibility::handleWindow(DesktopWindow* window) {
  if (!window) { return; }
  if (window != window_) {
    window_ = window;
    windowObserver_ = window->observe(
        [this](const WindowNotification& notification) { handleNotification(notification); });
  }
  setOnScreen(windowIsOnScreen() && !runtime_->isMenuBarOnly());
}

void WindowVisibility::handleRuntimeChange() {
  const bool menuBarOnly = runtime_->isMenuBarOnly();
  if (std::exchange(menuBarOnly_, menuBarOnly) == menuBarOnly) { return; }
  if (menuBarOnly) {
    setOnScreen(false);
  } else if (window_) {
    setOnScreen(windowIsOnScreen());
  }
}

void WindowVisibility::handleNotification(WindowNotification notification) {
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

void WindowVisibility::setOnScreen(bool onScreen) {
  if (std::exchange(onScreen_, onScreen) != onScreen) { onChange_(); }
}

bool WindowVisibility::windowIsOnScreen() const {
  return window_->isVisible() && !window_->isMiniaturized();
}

}  // namespace orvane
