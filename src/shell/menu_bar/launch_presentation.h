#pragma once

#include <optional>
#include <string>

#include "platform/async/executor.h"
#include "platform/async/timer.h"
#include "platform/desktop/desktop_application.h"

namespace orvane {

/// Brings the main window, found by its title, in front of the user, at launch and whenever the
/// application is started again. A window that does not exist yet is looked for ten times more, a
/// tenth of a second apart; after that nothing happens.
class LaunchPresentation {
 public:
  LaunchPresentation(Executor& executor, DesktopApplication& application,
                     std::string mainWindowTitle);

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

}  // namespace orvane
