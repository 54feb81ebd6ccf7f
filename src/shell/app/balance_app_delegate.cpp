#include "shell/app/balance_app_delegate.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>

#include "shell/app/scenes.h"

namespace orvane {

namespace {

using namespace std::chrono_literals;

constexpr int retries = 10;
constexpr auto retryDelay = 100ms;

}  // namespace

LaunchPresentation::LaunchPresentation(Executor& executor, DesktopApplication& application,
                                       std::string title)
    : executor_(executor), application_(application), mainWindowTitle_(std::move(title)) {}

DesktopWindow* LaunchPresentation::mainWindow() const {
  const auto windows = application_.windows();
  const auto found = std::ranges::find(windows, mainWindowTitle_,
                                       [](const auto* window) { return window->title(); });
  return found == windows.end() ? nullptr : *found;
}

void LaunchPresentation::presentMainWindow() { tryToPresent(0); }

void LaunchPresentation::present(DesktopWindow& window) {
  retry_.reset();
  application_.setActivationPolicy(ActivationPolicy::regular);
  application_.unhide();
  window.makeKeyAndOrderFront();
  application_.activateIgnoringOtherApps();
}

void LaunchPresentation::tryToPresent(int attempt) {
  if (auto* const window = mainWindow()) {
    present(*window);
  } else if (attempt < retries) {
    retry_.emplace(executor_, retryDelay, [this, attempt] { tryToPresent(attempt + 1); });
  }
}

namespace {

using namespace std::chrono_literals;

constexpr auto longestWait = 2s;
constexpr auto pollInterval = 20ms;

}  // namespace

OrderlyExit::OrderlyExit(Executor& executor, std::function<bool()> mayEnd,
                         std::function<void()> end)
    : executor_(executor), mayEnd_(std::move(mayEnd)), end_(std::move(end)) {}

void OrderlyExit::begin() {
  if (deadline_) { return; }
  deadline_ = executor_.now() + longestWait;
  poll();
}

void OrderlyExit::poll() {
  if (mayEnd_() || executor_.now() >= *deadline_) {
    end_();
  } else {
    nextPoll_.emplace(executor_, pollInterval, [this] { poll(); });
  }
}

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
