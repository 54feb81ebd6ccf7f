#pragma once

#include <optional>

#include "platform/async/executor.h"
#include "platform/async/timer.h"
#include "platform/defaults/user_defaults.h"
#include "platform/desktop/desktop_application.h"

namespace orvane {

/// What the application does when it starts and when it is started again: it brings the main
/// window, found by its title, in front of the user.
class BalanceAppDelegate {
 public:
  /// All outlive the delegate.
  BalanceAppDelegate(Executor& executor, DesktopApplication& application, UserDefaults& defaults)
      : executor_(executor), application_(application), defaults_(defaults) {}

  void willFinishLaunching();
  /// Presents the main window, soon. A window that does not exist yet is looked for ten times more,
  /// a tenth of a second apart; after that nothing happens.
  void didFinishLaunching();
  /// Presents the main window and answers false; true when there is none, and a new one is to be
  /// opened.
  [[nodiscard]] bool shouldHandleReopen();

 private:
  void presentMainWindow(int attempt);
  void present(DesktopWindow& window);

  Executor& executor_;
  DesktopApplication& application_;
  UserDefaults& defaults_;
  std::optional<OneShotTimer> retry_;
};

}  // namespace orvane
