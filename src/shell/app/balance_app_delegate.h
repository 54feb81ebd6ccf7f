#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/async/executor.h"
#include "platform/async/timer.h"
#include "platform/defaults/user_defaults.h"
#include "platform/desktop/desktop_application.h"

namespace orvane {

/// Brings the main window, found by its title, in front of the user, at launch and whenever the
/// application is started again. A window that does not exist yet is looked for ten times more, a
/// tenth of a second apart; after that nothing happens.
class LaunchPresentation {
 public:
  LaunchPresentation(Executor& executor, DesktopApplication& application, std::string title);

  /// Nothing when there is no such window now.
  [[nodiscard]] DesktopWindow* mainWindow() const;

  /// Looks for the window and presents it; a search that is still going on is given up.
  void presentMainWindow();
  void present(DesktopWindow& window);

 private:
  void tryToPresent(int attempt);

  Executor& executor_;
  DesktopApplication& application_;
  std::string mainWindowTitle_;
  std::optional<OneShotTimer> retry_;
};

/// Ends the program once nothing that must not be lost is on its way any more, and after two
/// seconds in any case. The event loop goes on meanwhile.
class OrderlyExit {
 public:
  /// `mayEnd` is asked again and again; `end` runs once.
  OrderlyExit(Executor& executor, std::function<bool()> mayEnd, std::function<void()> end);

  /// The first call counts.
  void begin();

 private:
  void poll();

  Executor& executor_;
  std::function<bool()> mayEnd_;
  std::function<void()> end_;
  std::optional<Instant> deadline_;
  std::optional<OneShotTimer> nextPoll_;
};

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
