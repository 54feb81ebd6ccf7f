#include "shell/menu_bar/background_runtime.h"
#include <chrono>
#include <utility>
#include "shell/menu_bar/status_button.h"

namespace orvane {
namespace {
using namespace std::chrono_literals;

constexpr auto rateInterval = 30s;
constexpr auto firstRateRetryDelay = 5s;

/// At login a panel may come some seconds later.
constexpr auto patienceForHost = 10s;

/// What `member` does, as long as the runtime exists.
std::function<void()> weakly(const std::weak_ptr<BackgroundRuntime>& runtime,
                             std::function<void(BackgroundRuntime&)> action) {
  return [runtime, action = std::move(action)] {
    if (const auto alive = runtime.lock()) { action(*alive); }
  };
}
}  // namespace

std::shared_ptr<BackgroundRuntime> BackgroundRuntime::create(BackgroundRuntimeOptions options,
                                                             BackgroundRuntimePlatform platform) {
  return std::shared_ptr<BackgroundRuntime>(new BackgroundRuntime(std::move(options), platform));
}

BackgroundRuntime::BackgroundRuntime(BackgroundRuntimeOptions options,
                                     BackgroundRuntimePlatform platform)
    : options_(std::move(options)), platform_(platform) {}

Registration BackgroundRuntime::observe(std::function<void()> listener) {
  return changed_.subscribe(std::move(listener));
}

void BackgroundRuntime::attachMainWindow(const std::string& title) {
  mainWindowTitle_ = title;
  ensureStatusItem();
  installKeyMonitors();
  platform_.executor.post(weakly(weak_from_this(), [](BackgroundRuntime& runtime) {
    if (auto* const window = runtime.mainWindow()) {
      window->setDelegate(runtime.weak_from_this());
    }
  }));
}

void BackgroundRuntime::updateStatus(bool working, const std::string& status, bool alert) {
  ensureStatusItem();
  if (displayedWorking_ == working && displayedStatus_ == status && displayedAlert_ == alert) {
    if (statusItem_) { statusItem_->noticeMenu(); }
    return;
  }
  displayedWorking_ = working;
  displayedStatus_ = status;
  displayedAlert_ = alert;
  if (statusItem_) {
    statusItem_->setToolTip(options_.appName + " · " + status);
    renderButton(*statusItem_, working);
  }
  refreshMenuBarRate();
}

void BackgroundRuntime::ensureStatusItem() {
  if (statusItem_) { return; }
  auto item = platform_.statusBar.createItem(StatusItem::squareLength);
  if (!item) { return; }
  renderButton(*item, false);
  item->setToolTip(options_.appName);
  item->setAction([weak = weak_from_this()](const std::optional<DesktopEvent>& event) {
    if (const auto runtime = weak.lock()) { runtime->handleStatusItemClick(event); }
  });
  statusItem_ = std::move(item);

  const auto refresh = weakly(weak_from_this(), &BackgroundRuntime::refreshMenuBarRate);
  menuBarRateTimer_.emplace(platform_.executor, rateInterval,
                            weakly(weak_from_this(), [](BackgroundRuntime& runtime) {
                              runtime.refreshMenuBarRate();
                              runtime.lookForHost();
                            }));
  if (!rateSettingObserver_) {
    rateSettingObserver_ = platform_.broadcasts.observe(
        rateSettingChanged, [refresh](const BroadcastCenter::Object& /*object*/) { refresh(); });
  }
}

void BackgroundRuntime::renderButton(StatusItem& item, bool working) const {
  std::optional<StatusColor> color;
  if (displayedAlert_) {
    color = StatusColor::systemOrange;
  } else if (working) {
    color = StatusColor::systemGreen;
  }
  const auto button = composeStatusButton(
      platform_.statusBar,
      {.symbolNames = {options_.statusImageName, options_.fallbackStatusImageName},
       .symbolDescription = options_.appName,
       .color = color,
       .text = working ? displayedMenuBarRate_ : std::string(),
       .spokenSuffix = menuBarTextProvider ? "" : "/s"});
  item.setLength(button.length);
  item.setImage(button.image);
}

void BackgroundRuntime::refreshMenuBarRate() {
  if (!statusItem_) { return; }
  const bool working = displayedWorking_.value_or(false);
  auto text = working ? currentMenuBarText() : std::string();
  if (working && text.empty() && !firstRateRetry_) { retryFirstRate(); }
  if (text == displayedMenuBarRate_) { return; }
  displayedMenuBarRate_ = std::move(text);
  renderButton(*statusItem_, working);
}

void BackgroundRuntime::retryFirstRate() {
  firstRateRetry_.emplace(platform_.executor, firstRateRetryDelay,
                          weakly(weak_from_this(), [](BackgroundRuntime& runtime) {
                            runtime.firstRateRetry_.reset();
                            runtime.refreshMenuBarRate();
                          }));
}

std::string BackgroundRuntime::currentMenuBarText() const {
  if (menuBarTextProvider) { return menuBarTextProvider().value_or(""); }
  if (!showsHashRate() || !menuBarRateProvider) { return {}; }
  const auto rate = menuBarRateProvider();
  return rate ? menuBarRateText(*rate) : std::string();
}

bool BackgroundRuntime::showsHashRate() const {
  return platform_.defaults.boolean(rateSettingKey).value_or(true);
}

void BackgroundRuntime::handleStatusItemClick(const std::optional<DesktopEvent>& event) {
  if (event && event->type == DesktopEvent::Type::rightMouseUp) {
    popUpStatusMenu();
  } else {
    showMainWindow();
  }
}

void BackgroundRuntime::popUpStatusMenu() {
  if (!statusItem_ || !statusMenuProvider) { return; }
  auto menu = statusMenuProvider();
  if (!menu) { return; }
  statusItem_->setMenu(std::move(menu));
  statusItem_->performClick();
  // A menu that stayed would catch the next left click.
  statusItem_->setMenu(std::nullopt);
}

void BackgroundRuntime::showMainWindow() {
  auto* const window = mainWindow();
  if (!window) { return; }
  awaitsHost_ = false;
  setMenuBarOnly(false);
  platform_.application.setActivationPolicy(ActivationPolicy::regular);
  platform_.application.unhide();
  if (window->isMiniaturized()) { window->deminiaturize(); }
  window->makeKeyAndOrderFront();
  platform_.application.activateIgnoringOtherApps();
  setMainWindowVisible(true);
}

void BackgroundRuntime::hideMainWindow() {
  if (!mainWindow()) { return; }
  if (!hasHost()) {
    keepMinimised();
    return;
  }
  setMenuBarOnly(true);
  setMainWindowVisible(false);
  auto& application = platform_.application;
  application.setActivationPolicy(ActivationPolicy::accessory);
  for (auto* const window : application.windows()) {
    if (window->level() == DesktopWindow::statusBarLevel) { continue; }
    if (window->isMiniaturized()) { window->deminiaturize(); }
    window->orderOut();
  }
  platform_.executor.post(weakly(weak_from_this(), [](BackgroundRuntime& runtime) {
    runtime.platform_.application.setActivationPolicy(ActivationPolicy::accessory);
  }));
}

void BackgroundRuntime::keepMinimised() {
  awaitsHost_ = true;
  for (auto* const window : platform_.application.windows()) {
    if (isMainWindow(*window)) {
      window->miniaturize();
    } else if (window->level() != DesktopWindow::statusBarLevel) {
      window->orderOut();
    }
  }
  if (onKeptWithoutHost) { onKeptWithoutHost(); }
}

// Looked at twice before anything is done, since a panel that restarts is back soon. A desktop that
// takes its tray away while the screen is locked gets everything hidden again afterwards.
void BackgroundRuntime::lookForHost() {
  const bool isMissing = isMenuBarOnly_ && !waitForHost_ && !hasHost();
  if (std::exchange(lacksHost_, isMissing) && isMissing) { showWithoutHost(); }
  const auto* const window = mainWindow();
  if (awaitsHost_ && hasHost() && window && window->isMiniaturized()) {
    awaitsHost_ = false;
    hideMainWindow();
  }
}

void BackgroundRuntime::startHidden() {
  setMenuBarOnly(true);
  setMainWindowVisible(false);
  platform_.application.setActivationPolicy(ActivationPolicy::accessory);
  waitForHost_.emplace(platform_.executor, patienceForHost,
                       weakly(weak_from_this(), &BackgroundRuntime::showWithoutHost));
}

void BackgroundRuntime::showWithoutHost() {
  waitForHost_.reset();
  auto* const window = mainWindow();
  if (!window || !isMenuBarOnly_ || hasHost()) { return; }
  awaitsHost_ = true;
  setMenuBarOnly(false);
  platform_.application.setActivationPolicy(ActivationPolicy::regular);
  window->miniaturize();
}

void BackgroundRuntime::installKeyMonitors() {
  if (!commandMMonitor_) { commandMMonitor_ = monitorHiding(isCommandM); }
  if (!escapeMonitor_) { escapeMonitor_ = monitorHiding(isPlainEscape); }
}

Registration BackgroundRuntime::monitorHiding(bool (*hides)(const DesktopEvent&)) {
  return platform_.application.addKeyDownMonitor(
      [weak = weak_from_this(), hides](const DesktopEvent& event) {
        const auto runtime = weak.lock();
        if (!runtime || !hides(event) || !runtime->mainWindowIsKey()) {
          return KeyDecision::passOn;
        }
        runtime->hideMainWindow();
        return KeyDecision::swallow;
      });
}

bool BackgroundRuntime::mainWindowIsKey() const {
  const auto* const window = mainWindow();
  return window && window->isKeyWindow();
}

DesktopWindow* BackgroundRuntime::mainWindow() const {
  return mainWindowTitle_ ? platform_.application.windowTitled(*mainWindowTitle_) : nullptr;
}

bool BackgroundRuntime::isMainWindow(const DesktopWindow& window) const {
  return mainWindowTitle_ && window.title() == *mainWindowTitle_;
}

bool BackgroundRuntime::windowShouldClose(DesktopWindow& window) {
  if (!isMainWindow(window)) { return true; }
  const auto event = platform_.application.currentEvent();
  if (event && (isCommandW(*event) || isPlainEscape(*event))) {
    hideMainWindow();
  } else {
    platform_.application.terminate();
  }
  return false;
}

void BackgroundRuntime::windowDidMiniaturize(DesktopWindow& window) {
  if (isMainWindow(window)) { setMainWindowVisible(false); }
}

void BackgroundRuntime::windowDidDeminiaturize(DesktopWindow& window) {
  if (!isMainWindow(window) || isMenuBarOnly_) { return; }
  awaitsHost_ = false;
  setMainWindowVisible(true);
}

void BackgroundRuntime::setMainWindowVisible(bool visible) {
  if (std::exchange(isMainWindowVisible_, visible) != visible) { changed_.send(); }
}

void BackgroundRuntime::setMenuBarOnly(bool menuBarOnly) {
  if (std::exchange(isMenuBarOnly_, menuBarOnly) != menuBarOnly) { changed_.send(); }
}
}  // namespace orvane
