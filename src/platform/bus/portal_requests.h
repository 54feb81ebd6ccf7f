#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>
#include <functional>
#include <map>
#include "platform/bus/session_bus.h"

namespace orvane {
/// Requests to the desktop portal, which answers them when the user has.
class PortalRequests final : public QObject {
 public:
  struct Request {
    QString interface;
    QString method;
    QVariantList arguments;  ///< without the options, which come last
    QVariantMap options;
  };

  explicit PortalRequests(SessionBus& bus);

  /// Calls `answered` with what the user agreed to; not at all when that is nothing. Calls
  /// `missing` instead when there is no portal that takes such requests.
  void send(Request request, std::function<void(const QVariantMap& results)> answered,
            std::function<void()> missing);

 private:
  void hear(const QDBusMessage& response);

  SessionBus& bus_;
  std::map<QString, std::function<void(const QVariantMap&)>> sent_;  ///< by the request's path
  int last_ = 0;
  BusSignal response_;
};
}  // namespace orvane
