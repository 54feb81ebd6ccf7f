#include "platform/desktop/status/tray_surroundings.h"

#include <utility>

namespace orvane {

TraySurroundings::TraySurroundings(Executor& executor, std::vector<std::string> desktopNames)
    : desktopNames_(std::move(desktopNames)), bus_(executor), services_(bus_), shade_(bus_) {
  observers_[0] = services_.observe([this] { changed_.send(); });
  observers_[1] = shade_.observe([this] { changed_.send(); });
  observers_[2] = manager_.observe([this] {
    dockingFailed_ = false;
    changed_.send();
  });
}

TrayFacts TraySurroundings::facts() const {
  return {.desktopNames = desktopNames_,
          .notifierWatcher = services_.hasWatcher(),
          .notifierHost = services_.hasHost(),
          .indicatorService = services_.hasIndicatorService(),
          .trayManager = manager_.window() != XCB_WINDOW_NONE,
          .dockingFailed = dockingFailed_};
}

PanelShade TraySurroundings::shade() const {
  // GNOME's panel is dark whatever the user prefers for windows.
  const bool isGnome =
      choosePresentation({.desktopNames = desktopNames_}) == Presentation::labelBesideSymbol;
  return isGnome ? PanelShade::dark : shade_.shade();
}

void TraySurroundings::dockingFailed() {
  dockingFailed_ = true;
  changed_.send();
}

Registration TraySurroundings::observe(std::function<void()> listener) {
  return changed_.subscribe(std::move(listener));
}

}  // namespace orvane
