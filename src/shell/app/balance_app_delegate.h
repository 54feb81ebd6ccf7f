#pragma once

#include "platform/async/executor.h"
#include "platform/defaults/user_defaults.h"
#include "platform/desktop/desktop_application.h"
#include "shell/menu_bar/launch_presentation.h"

namespace orvane {

/// What the application does when it starts and when it is started again.
class BalanceAppDelegate {
 public:
  /// All outlive the delegate.
  BalanceAppDelegate(Executor& executor, DesktopApplication& application, UserDefaults& defaults);

  void willFinishLaunching();
  /// Presents the main window, soon.
  void didFinishLaunching();
  /// Presents the main window and answers false; true when there is none, and a new one is to be
  /// opened.
  [[nodiscard]] bool shouldHandleReopen();

 private:
  Executor& executor_;
  DesktopApplication& application_;
  UserDefaults& defaults_;
  LaunchPresentation presentation_;
};

}  // namespace orvane
