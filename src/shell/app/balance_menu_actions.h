#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include "core/balance_store.h"
#include "platform/async/signal.h"
#include "platform/desktop/desktop_application.h"
#include "shell/app/scenes.h"

namespace orvane {
/// Posted to open a window; its object is the id of the scene.
inline constexpr const char* openWindowBroadcast = "Orvane.openWindow";

/// Posted to save the daily history.
inline constexpr const char* saveHistoryBroadcast = "Orvane.saveHistory";

/// What the commands of the status menu do.
class BalanceMenuActions {
 public:
  /// `broadcasts` outlives this object.
  explicit BalanceMenuActions(const BroadcastCenter& broadcasts) : broadcasts_(broadcasts) {}

  /// The store that is refreshed; set each time the menu is built.
  void setStore(std::weak_ptr<BalanceStore> store) { store_ = std::move(store); }

  void refreshNow() const {
    const auto store = store_.lock();
    if (!store) { return; }
    store->restartPolling();
    store->restartAddressWatch();
  }
  void showHelp() const { broadcasts_.post(openWindowBroadcast, std::string(helpSceneId)); }
  void showAbout() const { broadcasts_.post(openWindowBroadcast, std::string(aboutSceneId)); }

 private:
  const BroadcastCenter& broadcasts_;
  std::weak_ptr<BalanceStore> store_;
};

/// A command of the main window that opens another window and brings the application to the front.
struct BalanceOpenWindowCommand {
  std::string_view title;
  std::string_view id;  ///< of the window's scene
  std::string_view keyEquivalent = {};

  /// The command as a menu's row. `application` outlives it.
  [[nodiscard]] MenuItem menuItem(OpenWindow openWindow, DesktopApplication& application) const {
    return {.title = std::string(title),
            .keyEquivalent = std::string(keyEquivalent),
            .action = [openWindow = std::move(openWindow), &application, opened = id] {
              openWindow(opened);
              application.activateIgnoringOtherApps();
            }};
  }
};

inline constexpr BalanceOpenWindowCommand aboutCommand{.title = "About Orvane", .id = aboutSceneId};
inline constexpr BalanceOpenWindowCommand paymentsCommand{.title = "Payments…",
                                                          .id = paymentsSceneId};
inline constexpr BalanceOpenWindowCommand helpCommand{
    .title = "Orvane Help", .id = helpSceneId, .keyEquivalent = "?"};
}  // namespace orvane
