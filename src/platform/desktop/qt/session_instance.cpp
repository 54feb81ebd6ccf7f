#include "platform/desktop/qt/session_instance.h"
#include <QDBusMessage>
#include <QDBusReply>
#include <utility>
#include "platform/bus/session_bus.h"

namespace orvane {
namespace {
constexpr int busTimeout = 500;   // milliseconds
constexpr int claimAttempts = 2;  // the owner may be about to end
constexpr uint doNotQueue = 4;    // flag of RequestName
constexpr uint primaryOwner = 1;  // replies of RequestName
constexpr uint nameHasOtherOwner = 3;

const QString interfaceName = QStringLiteral("org.freedesktop.Application");

QString objectPath(QString id) { return u'/' + id.replace(u'.', u'/').replace(u'-', u'_'); }

uint requestName(const QDBusConnection& bus, const QString& name) {
  const auto request = callOfBusItself(QStringLiteral("RequestName"), {name, doNotQueue});
  const QDBusReply<uint> reply = bus.call(request, QDBus::Block, busTimeout);
  return reply.isValid() ? reply.value() : 0;
}

/// What a launcher has put into the environment of a process that it started, for that process's
/// window to take the focus.
QVariantMap ownPlatformData() {
  QVariantMap data;
  const auto startupId = qEnvironmentVariable("DESKTOP_STARTUP_ID");
  const auto token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN", startupId);
  if (!startupId.isEmpty()) { data.insert(QStringLiteral("desktop-startup-id"), startupId); }
  if (!token.isEmpty()) { data.insert(QStringLiteral("activation-token"), token); }
  return data;
}

std::string activationToken(const QVariantMap& platformData) {
  const auto token = platformData.value(QStringLiteral("activation-token")).toString();
  const auto startupId = platformData.value(QStringLiteral("desktop-startup-id")).toString();
  return (token.isEmpty() ? startupId : token).toStdString();
}
}  // namespace

SessionInstance::SessionInstance(const QString& applicationId, std::chrono::milliseconds patience)
    : id_(applicationId),
      path_(objectPath(applicationId)),
      patience_(patience),
      bus_(QDBusConnection::sessionBus()) {}

SessionInstance::~SessionInstance() { bus_.unregisterObject(path_); }

InstanceRole SessionInstance::claim() {
  if (!bus_.isConnected()) { return InstanceRole::alone; }
  // The object comes before the name: who waits for the name may call at once.
  bus_.registerObject(path_, this, QDBusConnection::ExportAllSlots);
  for (int attempt = 0; attempt < claimAttempts; ++attempt) {
    switch (requestName(bus_, id_)) {
      case primaryOwner:
        return InstanceRole::first;
      case nameHasOtherOwner:
        if (activateOther()) { return InstanceRole::handedOver; }
        break;
      default:
        return InstanceRole::alone;
    }
  }
  return InstanceRole::unreachable;
}

void SessionInstance::release() {
  bus_.asyncCall(callOfBusItself(QStringLiteral("ReleaseName"), {id_}));
}

void SessionInstance::setRequests(ApplicationRequests requests) { requests_ = std::move(requests); }

bool SessionInstance::activateOther() const {
  auto request =
      QDBusMessage::createMethodCall(id_, path_, interfaceName, QStringLiteral("Activate"));
  request << ownPlatformData();
  const auto answer = bus_.call(request, QDBus::Block, static_cast<int>(patience_.count()));
  return answer.type() == QDBusMessage::ReplyMessage;
}

void SessionInstance::Activate(const QVariantMap& platformData) {
  if (requests_.activate) { requests_.activate(activationToken(platformData)); }
}

void SessionInstance::Open(const QStringList& /*uris*/, const QVariantMap& platformData) {
  Activate(platformData);  // there is nothing that the application opens
}

void SessionInstance::ActivateAction(const QString& name, const QVariantList& /*parameters*/,
                                     const QVariantMap& platformData) {
  if (requests_.runAction) {
    requests_.runAction(name.toStdString(), activationToken(platformData));
  }
}
}  // namespace orvane
