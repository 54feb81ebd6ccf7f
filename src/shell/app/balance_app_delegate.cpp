#include "shell/app/balance_app_delegate.h"

#include <chrono>

#include "shell/app/scenes.h"

namespace orvane {

namespace {

constexpr int retries = 10;
constexpr auto retryDelay = std::chrono::milliseconds(100);

}  // namespace

void BalanceAppDelegate::willFinishLaunching() {
  defaults_.setBoolean("NSQuitAlwaysKeepsWindows", false);
}

void BalanceAppDelegate::didFinishLaunching() {
  application_.setActivationPolicy(ActivationPolicy::regular);
  executor_.post([this] { presentMainWindow(0); });
}

bool BalanceAppDelegate::shouldHandleReopen() {
  auto* const window = application_.windowTitled(mainWindowTitle);
  if (!window) { return true; }
  present(*window);
  return false;
}

void BalanceAppDelegate::presentMainWindow(int attempt) {
  if (auto* const window = application_.windowTitled(mainWindowTitle)) {
    present(*window);
  } else if (attempt < retries) {
    retry_.emplace(executor_, retryDelay, [this, attempt] { presentMainWindow(attempt + 1); });
  }
}

void BalanceAppDelegate::present(DesktopWindow& window) {
  retry_.reset();
  application_.setActivationPolicy(ActivationPolicy::regular);
  application_.unhide();
  window.makeKeyAndOrderFront();
  application_.activateIgnoringOtherApps();
}

}  // namespace orvane
