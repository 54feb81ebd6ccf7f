#pragma once

#include <QNetworkInformation>
#include <QObject>
#include <chrono>
#include "platform/network/network_watch.h"

namespace orvane {
/// What NetworkManager says, or else GLib, through whichever of Qt's plugins is installed and finds
/// its service. Lives on the main thread, after the QCoreApplication's construction.
class QtNetworkWatch final : public NetworkWatch {
 public:
  /// Begins so much later: finding the plugins takes as long as painting a window that is about to
  /// appear.
  explicit QtNetworkWatch(std::chrono::milliseconds delay = std::chrono::seconds(1));

  [[nodiscard]] Registration onReachable(std::function<void()> listener) override {
    return reachable_.subscribe(std::move(listener));
  }

 private:
  using Reachability = QNetworkInformation::Reachability;

  void begin();
  void notice(Reachability now);

  Reachability known_ = Reachability::Unknown;
  Signal<> reachable_;
  QObject receiver_;  ///< of Qt's signal
};
}  // namespace orvane
