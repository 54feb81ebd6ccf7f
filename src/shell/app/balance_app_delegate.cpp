#include "shell/app/balance_app_delegate.h"

#include <string>

#include "shell/app/window_scenes.h"

namespace orvane {

BalanceAppDelegate::BalanceAppDelegate(Executor& executor, DesktopApplication& application,
                                       UserDefaults& defaults)
    : executor_(executor),
      application_(application),
      defaults_(defaults),
      presentation_(executor, application, std::string(mainWindowTitle)) {}

void BalanceAppDelegate::willFinishLaunching() {
  defaults_.setBoolean("NSQuitAlwaysKeepsWindows", false);
}

void BalanceAppDelegate::didFinishLaunching() {
  application_.setActivationPolicy(ActivationPolicy::regular);
  executor_.post([this] { presentation_.presentMainWindow(); });
}

bool BalanceAppDelegate::shouldHandleReopen() {
  auto* const window = presentation_.mainWindow();
  if (!window) { return true; }
  presentation_.present(*window);
  return false;
}

}  // namespace orvane
