#pragma once

#include <chrono>
#include <optional>
#include "platform/async/executor.h"
#include "platform/async/timer.h"
#include "platform/defaults/user_defaults.h"
#include "platform/desktop/desktop_application.h"
#include "shell/app/scenes.h"

namespace orvane {
/// What the application does when it starts and when it is started again: it brings the main
/// window, found by its title, in front of the user.
class BalanceAppDelegate {
 public:
  /// All outlive the delegate.
  BalanceAppDelegate(Executor& executor, DesktopApplication& application, UserDefaults& defaults)
      : executor_(executor), application_(application), defaults_(defaults) {}

  void willFinishLaunching() { defaults_.setBoolean("NSQuitAlwaysKeepsWindows", false); }

  /// Presents the main window, soon. A window that does not exist yet is looked for ten times more,
  /// a tenth of a second apart; after that nothing happens.
  void didFinishLaunching() {
    application_.setActivationPolicy(ActivationPolicy::regular);
    executor_.post([this] { presentMainWindow(0); });
  }

  /// Presents the main window and answers false; true when there is none, and a new one is to be
  /// opened.
  [[nodiscard]] bool shouldHandleReopen() {
    auto* const window = application_.windowTitled(mainWindowTitle);
    if (!window) { return true; }
    present(*window);
    return false;
  }

 private:
  static constexpr int retries = 10;
  static constexpr std::chrono::milliseconds retryDelay{100};

  void presentMainWindow(int attempt) {
    if (auto* const window = application_.windowTitled(mainWindowTitle)) {
      present(*window);
    } else if (attempt < retries) {
      retry_.emplace(executor_, retryDelay, [this, attempt] { presentMainWindow(attempt + 1); });
    }
  }

  void present(DesktopWindow& window) {
    retry_.reset();
    application_.setActivationPolicy(ActivationPolicy::regular);
    application_.unhide();
    window.makeKeyAndOrderFront();
    application_.activateIgnoringOtherApps();
  }

  Executor& executor_;
  DesktopApplication& application_;
  UserDefaults& defaults_;
  std::optional<OneShotTimer> retry_;
};
}  // namespace orvane
