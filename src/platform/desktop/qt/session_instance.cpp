#include "platform/desktop/qt/session_instance.h"
#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusReply>
#include <utility>

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

QVariantMap platformData(const QString& activationToken) {
  if (activationToken.isEmpty()) { return {}; }
  return {{QStringLiteral("activation-token"), activationToken}};
}

std::string activationToken(const QVariantMap& data) {
  const auto token = data.value(QStringLiteral("activation-token")).toString();
  const auto startupId = data.value(QStringLiteral("desktop-startup-id")).toString();
  return (token.isEmpty() ? startupId : token).toStdString();
}
}  // namespace

QString activationTokenOfStart() {
  return qEnvironmentVariable("XDG_ACTIVATION_TOKEN", qEnvironmentVariable("DESKTOP_STARTUP_ID"));
}

SessionInstance::SessionInstance(SessionBus& bus, const QString& applicationId,
                                 std::chrono::milliseconds patience)
    : bus_(bus), id_(applicationId), path_(objectPath(applicationId)), patience_(patience) {}

SessionInstance::~SessionInstance() { unexportObject(); }

InstanceRole SessionInstance::claim(const QString& activationToken) {
  busObserver_ = bus_.observe([this] { claimAgain(); });
  if (!bus_.isOpen()) { return InstanceRole::alone; }
  exportObject();
  for (int attempt = 0; attempt < claimAttempts; ++attempt) {
    switch (requestName(bus_.connection(), id_)) {
      case primaryOwner:
        return InstanceRole::first;
      case nameHasOtherOwner:
        if (activateOther(activationToken)) { return InstanceRole::handedOver; }
        break;
      default:
        return InstanceRole::alone;
    }
  }
  return InstanceRole::unreachable;
}

// The object comes before the name: who waits for the name may call at once.
void SessionInstance::exportObject() {
  QDBusConnection connection = bus_.connection();
  connection.registerObject(path_, this, QDBusConnection::ExportAllSlots);
}

void SessionInstance::unexportObject() {
  if (!bus_.isOpen()) { return; }
  QDBusConnection connection = bus_.connection();
  connection.unregisterObject(path_);
}

/// On another bus, or the same one restarted. Somebody else who has the name there keeps it.
void SessionInstance::claimAgain() {
  if (!bus_.isOpen()) { return; }
  exportObject();
  bus_.connection().asyncCall(callOfBusItself(QStringLiteral("RequestName"), {id_, doNotQueue}));
}

void SessionInstance::release() {
  busObserver_ = {};
  if (!bus_.isOpen()) { return; }
  bus_.connection().asyncCall(callOfBusItself(QStringLiteral("ReleaseName"), {id_}));
}

void SessionInstance::setRequests(ApplicationRequests requests) { requests_ = std::move(requests); }

void SessionInstance::answerEarlyRequests() {
  if (!bus_.isOpen()) { return; }
  // The bus hands them over together with the name, so they are in when it answers once more.
  bus_.connection().call(callOfBusItself(QStringLiteral("GetId")), QDBus::Block, busTimeout);
  QCoreApplication::sendPostedEvents(this);
}

bool SessionInstance::activateOther(const QString& activationToken) const {
  auto request =
      QDBusMessage::createMethodCall(id_, path_, interfaceName, QStringLiteral("Activate"));
  request << platformData(activationToken);
  const auto answer =
      bus_.connection().call(request, QDBus::Block, static_cast<int>(patience_.count()));
  return answer.type() == QDBusMessage::ReplyMessage;
}

void SessionInstance::Activate(const QVariantMap& data) {
  if (requests_.activate) { requests_.activate(activationToken(data)); }
}

void SessionInstance::Open(const QStringList& /*uris*/, const QVariantMap& data) {
  Activate(data);  // there is nothing that the application opens
}

void SessionInstance::ActivateAction(const QString& name, const QVariantList& /*parameters*/,
                                     const QVariantMap& data) {
  if (requests_.runAction) { requests_.runAction(name.toStdString(), activationToken(data)); }
}
}  // namespace orvane
