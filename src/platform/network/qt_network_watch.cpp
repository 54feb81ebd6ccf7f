#include "platform/network/qt_network_watch.h"
#include <QTimer>
#include <utility>

namespace orvane {
QtNetworkWatch::QtNetworkWatch(std::chrono::milliseconds delay) {
  QTimer::singleShot(delay, &receiver_, [this] { begin(); });
}

void QtNetworkWatch::begin() {
  if (!QNetworkInformation::loadBackendByFeatures(QNetworkInformation::Feature::Reachability)) {
    return;
  }
  const QNetworkInformation* const network = QNetworkInformation::instance();
  QObject::connect(network, &QNetworkInformation::reachabilityChanged, &receiver_,
                   [this](Reachability now) { notice(now); });
  notice(network->reachability());  // it may have come back before
}

// The values are in the order of how far one gets. A rise from a site to the internet is one more
// occasion: a first try may have come before the way out.
void QtNetworkWatch::notice(Reachability now) {
  const Reachability before = std::exchange(known_, now);
  if (now > before && now >= Reachability::Site) { reachable_.send(); }
}
}  // namespace orvane
