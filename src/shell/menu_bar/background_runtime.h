#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include "platform/async/executor.h"
#include "platform/async/signal.h"
#include "platform/async/timer.h"
#include "platform/defaults/user_defaults.h"
#include "platform/desktop/desktop_application.h"
#include "platform/tray/status_item.h"

namespace orvane {
/// What the application wants of its status item.
struct BackgroundRuntimeOptions {
  std::string appName = "Orvane";  ///< begins the tooltip and describes the icon
  std::string statusImageName = "chart.line.uptrend.xyaxis";
  std::string fallbackStatusImageName = "chart.bar";
  bool menuBarMode = true;         ///< kept as given; nothing depends on it
  bool preventsIdleSleep = false;  ///< kept as given; nothing depends on it
};

/// What the runtime works with; all of it outlives the runtime.
struct BackgroundRuntimePlatform {
  Executor& executor;
  DesktopApplication& application;
  StatusBar& statusBar;
  BroadcastCenter& broadcasts;
  const UserDefaults& defaults;
};

/// Keeps the application in the status area: owns the status item, hides the windows into it and
/// brings them back. It decides nothing about figures; text and menu come from its providers.
/// Main thread only.
class BackgroundRuntime final : public WindowDelegate,
                                public std::enable_shared_from_this<BackgroundRuntime> {
 public:
  /// Announces that the setting below has changed.
  static constexpr const char* rateSettingChanged = "MenuBarRateSetting.didChange";
  /// Whether a hash rate shows beside the icon; anything but a boolean counts as yes.
  static constexpr const char* rateSettingKey = "menuBar.showsHashRate";

  [[nodiscard]] static std::shared_ptr<BackgroundRuntime> create(
      BackgroundRuntimeOptions options, BackgroundRuntimePlatform platform);
  BackgroundRuntime(const BackgroundRuntime&) = delete;
  BackgroundRuntime& operator=(const BackgroundRuntime&) = delete;

  /// The text beside the icon; without this provider a hash rate stands there instead.
  std::function<std::optional<std::string>()> menuBarTextProvider;
  /// The hash rate, in hashes per second, that stands there then.
  std::function<std::optional<double>()> menuBarRateProvider;
  /// Told when the main window was minimised for want of somebody who draws the status item.
  std::function<void()> onKeptWithoutHost;
  /// Builds the menu of the status item, each time it is asked for.
  std::function<std::optional<Menu>()> statusMenuProvider;

  /// Records the title by which the main window is found, creates the status item and the key
  /// monitors where they are missing, and becomes the window's delegate soon afterwards.
  void attachMainWindow(const std::string& title);
  /// Tints the icon and sets its tooltip; returns at once when nothing differs from before.
  void updateStatus(bool working, const std::string& status, bool alert);

  void showMainWindow();
  /// Moves the application into the status area: no window stays on screen. Where nobody draws the
  /// status item the main window is minimised instead, so that there is something to find, and goes
  /// once somebody does.
  void hideMainWindow();
  /// Has the application live in the status area from its start, before any window has been shown.
  /// Where nobody draws the status item after a while the main window comes up minimised, so that
  /// there is something to find.
  void startHidden();
  void handleStatusItemClick(const std::optional<DesktopEvent>& event);

  [[nodiscard]] const BackgroundRuntimeOptions& options() const { return options_; }
  /// The main window is meant to be on screen.
  [[nodiscard]] bool isMainWindowVisible() const { return isMainWindowVisible_; }
  /// The application lives in the status area alone.
  [[nodiscard]] bool isMenuBarOnly() const { return isMenuBarOnly_; }
  /// Tells of every change of the two.
  [[nodiscard]] Registration observe(std::function<void()> listener);

  [[nodiscard]] bool windowShouldClose(DesktopWindow& window) override;
  void windowDidMiniaturize(DesktopWindow& window) override;
  void windowDidDeminiaturize(DesktopWindow& window) override;

 private:
  BackgroundRuntime(BackgroundRuntimeOptions options, BackgroundRuntimePlatform platform);

  [[nodiscard]] DesktopWindow* mainWindow() const;
  [[nodiscard]] bool isMainWindow(const DesktopWindow& window) const;
  void ensureStatusItem();
  void installKeyMonitors();
  [[nodiscard]] Registration monitorHiding(bool (*hides)(const DesktopEvent&));
  [[nodiscard]] bool mainWindowIsKey() const;

  void renderButton(StatusItem& item, bool working) const;
  void refreshMenuBarRate();
  void retryFirstRate();
  [[nodiscard]] std::string currentMenuBarText() const;
  [[nodiscard]] bool showsHashRate() const;
  void popUpStatusMenu();

  [[nodiscard]] bool hasHost() const { return statusItem_ && statusItem_->hasHost(); }
  void keepMinimised();
  void showWithoutHost();
  void lookForHost();
  void setMainWindowVisible(bool visible);
  void setMenuBarOnly(bool menuBarOnly);

  BackgroundRuntimeOptions options_;
  BackgroundRuntimePlatform platform_;
  std::optional<std::string> mainWindowTitle_;
  std::unique_ptr<StatusItem> statusItem_;
  Registration commandMMonitor_;
  Registration escapeMonitor_;
  std::optional<bool> displayedWorking_;
  std::optional<std::string> displayedStatus_;
  bool displayedAlert_ = false;
  std::optional<RepeatingTimer> menuBarRateTimer_;
  std::optional<OneShotTimer> firstRateRetry_;
  std::optional<OneShotTimer> waitForHost_;
  Registration rateSettingObserver_;
  std::string displayedMenuBarRate_;
  bool isMainWindowVisible_ = true;
  bool isMenuBarOnly_ = false;
  bool awaitsHost_ = false;  ///< minimised until there is one
  bool lacksHost_ = false;   ///< hidden, and there was none at the last look
  Signal<> changed_;
};
}  // namespace orvane
