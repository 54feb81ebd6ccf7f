#include "platform/http/dialing.h"
#include <algorithm>
#include <chrono>
#include <utility>
#include "platform/http/request_rules.h"

namespace orvane {
namespace {
constexpr std::chrono::milliseconds headStart{250};
constexpr qsizetype mostAddresses = 6;

std::optional<QNetworkProxy> carryingProxy(const Proxies& proxies) {
  const auto found = std::ranges::find_if(proxies, [](const QNetworkProxy& proxy) {
    return proxy.capabilities().testFlag(QNetworkProxy::TunnelingCapability);
  });
  return found != proxies.end() ? std::optional(*found) : std::nullopt;
}

/// In the system's order, but for the second: it is of the other protocol, if there is one.
QList<QHostAddress> inTurns(QList<QHostAddress> addresses) {
  const auto other = std::ranges::find_if(addresses, [&](const QHostAddress& address) {
    return address.protocol() != addresses.front().protocol();
  });
  if (other != addresses.end()) { std::rotate(addresses.begin() + 1, other, other + 1); }
  return addresses.first(std::min(addresses.size(), mostAddresses));
}
}  // namespace

Dialing::Dialing(Executor& executor, QString host, quint16 port, const Proxies& proxies,
                 Listener listener)
    : executor_(executor),
      host_(std::move(host)),
      port_(port),
      proxy_(carryingProxy(proxies)),
      listener_(std::move(listener)) {}

Dialing::~Dialing() {
  executor_.cancel(timer_);
  if (lookup_) { QHostInfo::abortHostLookup(*lookup_); }
}

void Dialing::begin() {
  if (!proxy_) {
    listener_.failed(HttpFailure::cannotFindHost);
  } else if (proxy_->type() != QNetworkProxy::NoProxy || !QHostAddress(host_).isNull()) {
    tryHost(host_);
  } else {
    // By the slot's name: Qt 6.4 loses a function object whose look-up is given up.
    lookup_ = QHostInfo::lookupHost(host_, this, SLOT(lookedUp(QHostInfo)));
  }
}

void Dialing::lookedUp(const QHostInfo& found) {
  lookup_.reset();
  if (found.addresses().isEmpty()) {
    listener_.failed(HttpFailure::cannotFindHost);
    return;
  }
  addresses_ = inTurns(found.addresses());
  tryNext();
}

void Dialing::tryNext() {
  executor_.cancel(timer_);
  const QHostAddress address = addresses_.takeFirst();
  if (!addresses_.isEmpty()) {
    timer_ = executor_.schedule(executor_.now() + headStart, [this] { tryNext(); });
  }
  tryHost(address.toString());
}

void Dialing::tryHost(const QString& hostOrAddress) {
  QSslSocket* const socket = sockets_.emplace_back(std::make_unique<QSslSocket>()).get();
  socket->setProxy(*proxy_);
  QObject::connect(socket, &QSslSocket::connected, &receiver_, [this, socket] { taken(*socket); });
  QObject::connect(socket, &QSslSocket::errorOccurred, &receiver_,
                   [this, socket] { refused(*socket); });
  socket->connectToHost(hostOrAddress, port_);
}

void Dialing::taken(QSslSocket& socket) {
  executor_.cancel(timer_);
  socket.disconnect(&receiver_);
  const auto place = std::ranges::find(sockets_, &socket, &std::unique_ptr<QSslSocket>::get);
  std::unique_ptr<QSslSocket> winner = std::move(*place);
  sockets_.clear();
  addresses_.clear();
  listener_.connected(std::move(winner));
}

void Dialing::refused(const QSslSocket& socket) {
  if (!failure_) { failure_ = socketFailure(socket.error(), false); }
  ++refused_;
  if (!addresses_.isEmpty()) {
    tryNext();
  } else if (refused_ == sockets_.size()) {
    executor_.cancel(timer_);
    listener_.failed(*failure_);
  }
}
}  // namespace orvane
