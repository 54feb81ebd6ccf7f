#pragma once

#include <QHostAddress>
#include <QHostInfo>
#include <QList>
#include <QNetworkProxy>
#include <QObject>
#include <QSslSocket>
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <vector>
#include "platform/async/executor.h"
#include "platform/http/http_transport.h"
#include "platform/http/proxy_lookup.h"

namespace orvane {
/// Makes one connection to a host, in clear so far: through a proxy, or to one of its addresses.
///
/// Of several addresses the next is tried when the one before has failed, or has been silent for a
/// quarter of a second (RFC 8305): a network whose IPv6 leads nowhere is not waited for. The first
/// that answers is taken, the others are dropped.
class Dialing final : public QObject {
  Q_OBJECT

 public:
  struct Listener {
    std::function<void(std::unique_ptr<QSslSocket>)> connected;
    std::function<void(HttpFailure)> failed;  ///< nothing is left to be tried
  };

  /// `proxies` in their order; the first that can carry a connection is used.
  Dialing(Executor& executor, QString host, quint16 port, const Proxies& proxies,
          Listener listener);
  Dialing(const Dialing&) = delete;
  Dialing& operator=(const Dialing&) = delete;
  /// Gives up what is under way.
  ~Dialing() override;

  /// The listener may hear of a failure before this returns.
  void begin();

 private Q_SLOTS:
  void lookedUp(const QHostInfo& found);

 private:
  void tryNext();
  void tryHost(const QString& hostOrAddress);
  void taken(QSslSocket& socket);
  void refused(const QSslSocket& socket);

  Executor& executor_;
  QString host_;
  quint16 port_;
  std::optional<QNetworkProxy> proxy_;
  Listener listener_;
  QList<QHostAddress> addresses_;  ///< still to be tried
  std::vector<std::unique_ptr<QSslSocket>> sockets_;
  std::size_t refused_ = 0;
  std::optional<HttpFailure> failure_;  ///< the first one: it is the likeliest address's
  std::optional<int> lookup_;
  Executor::TimerId timer_ = 0;
  QObject receiver_;  ///< of the signals; last, so that none meets a half-destroyed object
};
}  // namespace orvane
