#include "shell/menu_bar/launch_presentation.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace orvane {
namespace {

using namespace std::chrono_literals;

constexpr int retries = 10;
constexpr auto retryDelay = 100ms;

}  // namespace

LaunchPresentation::LaunchPresentation(Executor& executor, DesktopApplication& application,
                                       std::string mainWindowTitle)
    : executor_(executor),
      application_(application),
      mainWindowTitle_(std::move(mainWindowTitle)) {}

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

}  // namespace orvane
