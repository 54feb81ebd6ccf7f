#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include "core/balance_store.h"
#include "platform/async/executor.h"
#include "platform/async/signal.h"
#include "platform/async/task_scope.h"
#include "platform/async/timer.h"
#include "platform/desktop/qt/qt_desktop_application.h"
#include "platform/tray/status_item.h"
#include "shell/app/balance_app_delegate.h"
#include "shell/app/balance_menu_actions.h"
#include "shell/app/scenes.h"
#include "shell/menu_bar/background_runtime.h"
#include "shell/views/history_commands.h"
#include "shell/views/kept_layout.h"

namespace orvane {
class BalanceMainSceneContent;

/// What the application works with; all of it outlives the application.
struct OrvanePlatform {
  BalancePlatform balance;
  QtDesktopApplication& desktop;
  StatusBar& statusBar;
};

/// Whether the program starts at login, where it is the one to switch that.
struct StartAtLogin {
  std::function<bool()> isOn;
  std::function<void(bool on)> set;
};

/// What a build or a test chooses.
struct OrvaneSettings {
  std::string poolWebHost;      ///< host of the pool's web site
  std::string explorerWebHost;  ///< host of the block explorer's web site
  std::string brandUrl;         ///< destination of the brand line; empty: plain text
  std::string version;
  AskWhereToSave askWhereToSave = {};  ///< none: the history cannot be saved
  std::optional<StartAtLogin> startAtLogin = {};
};

/// Whether a launcher's command brings a window up.
[[nodiscard]] inline bool opensWindow(std::string_view command) {
  return command == "show-help" || command == "show-about";
}

/// The application: its store, its runtime and its windows, from launch to end. One exists per
/// process.
class OrvaneApp {
 public:
  OrvaneApp(OrvanePlatform platform, OrvaneSettings settings);
  OrvaneApp(const OrvaneApp&) = delete;
  OrvaneApp& operator=(const OrvaneApp&) = delete;
  ~OrvaneApp();

  /// Called once, when the application begins to end.
  std::function<void()> onEnd;

  /// Brings the main window up, from the event loop.
  void launch();
  /// The user has started the application again: brings the main window back.
  void reopen();
  /// Carries out a command that a launcher names: "refresh-now", "show-help", "show-about",
  /// "start-quietly" or "quit". Others are ignored. To start quietly, into the status area without
  /// a window, is for a launch that has not shown one yet.
  void runAction(std::string_view name);

 private:
  [[nodiscard]] std::unique_ptr<QWidget> makeContent(const WindowScene& scene);
  [[nodiscard]] std::unique_ptr<QWidget> makeMainContent();
  void prepareMainWindow();
  [[nodiscard]] OpenWindow openWindow();
  [[nodiscard]] Menu commands();
  void tellOfMissingTray();
  [[nodiscard]] bool isLaunching() const { return longestWaitForToken_.has_value(); }
  void finishLaunching();
  void end();
  void exitOnceWritten();

  OrvanePlatform platform_;
  OrvaneSettings settings_;
  KeptLayout layout_;
  BroadcastCenter broadcasts_;
  std::shared_ptr<BalanceStore> store_;
  std::shared_ptr<BackgroundRuntime> backgroundRuntime_;
  std::shared_ptr<BalanceMenuActions> menuActions_;
  SceneWindows windows_;
  BalanceAppDelegate appDelegate_;
  TaskScope notifying_;
  Registration tokenRead_;
  std::optional<OneShotTimer> longestWaitForToken_;
  std::vector<std::string> actionsAtLaunch_;  ///< what was asked for before the window was up
  bool startsQuietly_ = false;
  BalanceMainSceneContent* mainContent_ = nullptr;
  std::optional<Instant> exitDeadline_;
  std::optional<OneShotTimer> nextLookAtWrites_;
};
}  // namespace orvane
