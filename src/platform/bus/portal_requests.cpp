#include "platform/bus/portal_requests.h"
#include <QDBusArgument>
#include <utility>
#include "platform/bus/desktop_portal.h"

namespace orvane {
namespace {
using namespace std::chrono_literals;

const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto requestInterface = QStringLiteral("org.freedesktop.portal.Request");

/// A portal says at once that it has taken the request, or does not; its start takes a moment.
constexpr auto patience = 5s;
}  // namespace

PortalRequests::PortalRequests(SessionBus& bus)
    : bus_(bus),
      response_(bus, {}, requestInterface, QStringLiteral("Response"),
                [this](const QDBusMessage& response) { hear(response); }) {}

void PortalRequests::send(Request request, std::function<void(const QVariantMap&)> answered,
                          std::function<void()> missing) {
  if (!bus_.isOpen()) {
    missing();
    return;
  }
  const auto token = QStringLiteral("orvane%1").arg(++last_);
  // Known before the call, so that no answer is missed.
  const auto path =
      QStringLiteral("%1/request/%2/%3")
          .arg(portalPath, bus_.connection().baseService().mid(1).replace(u'.', u'_'), token);
  sent_[path] = std::move(answered);
  auto call =
      QDBusMessage::createMethodCall(portalService, portalPath, request.interface, request.method);
  request.options.insert(QStringLiteral("handle_token"), token);
  request.arguments.append(request.options);
  call.setArguments(request.arguments);
  callOnBus(
      bus_, call, this,
      [this, path, missing = std::move(missing)](const BusReply& reply) {
        if (reply) { return; }
        sent_.erase(path);
        missing();
      },
      patience);
}

void PortalRequests::hear(const QDBusMessage& response) {
  const auto sent = sent_.extract(response.path());
  if (sent.empty() || response.arguments().value(0).toUInt() != 0) { return; }
  sent.mapped()(qdbus_cast<QVariantMap>(response.arguments().value(1)));
}
}  // namespace orvane
