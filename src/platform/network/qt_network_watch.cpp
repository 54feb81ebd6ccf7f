#include "platform/network/qt_network_watch.h"
#include <utility>

namespace orvane {
QtNetworkWatch::QtNetworkWatch() {
  if (!QNetworkInformation::loadBackendByFeatures(QNetworkInformation::Feature::Reachability)) {
    return;
  }
  const QNetworkInformation* const network = QNetworkInformation::instance();
  known_ = network->reachability();
  QObject::connect(network, &QNetworkInformation::reachabilityChanged, &receiver_,
                   [this](Reachability now) { notice(now); });
}

// The values are in the order of how far one gets. A rise from a site to the internet is one more
// occasion: a first try may have come before the way out.
void QtNetworkWatch::notice(Reachability now) {
  const Reachability before = std::exchange(known_, now);
  if (now > before && now >= Reachability::Site) { reachable_.send(); }
}
}  // namespace orvane
