#include "platform/bus/exported_object.h"
#include <QDBusError>
#include <QDBusVariant>
#include <utility>

namespace orvane {
namespace {
const auto propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

QDBusMessage unknown(const QDBusMessage& call, QDBusError::ErrorType kind, const QString& what) {
  return call.createErrorReply(kind, QStringLiteral("There is no ") + what);
}
}  // namespace

ExportedObject::ExportedObject(QDBusConnection connection, QString path, ObjectSurface surface)
    : connection_(std::move(connection)), path_(std::move(path)), surface_(std::move(surface)) {
  connection_.registerVirtualObject(path_, this);
}

ExportedObject::~ExportedObject() { connection_.unregisterObject(path_); }

void ExportedObject::sendSignal(const QString& name, const QVariantList& values) {
  auto message = QDBusMessage::createSignal(path_, surface_.interface, name);
  message.setArguments(values);
  connection_.send(message);
}

QString ExportedObject::introspect(const QString& /*path*/) const {
  return QStringLiteral("<interface name=\"%1\">%2</interface>")
      .arg(surface_.interface, surface_.introspection);
}

bool ExportedObject::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
  if (message.type() != QDBusMessage::MethodCallMessage) { return false; }
  const bool isForProperties = message.interface() == propertiesInterface;
  if (!isForProperties && !message.interface().isEmpty() &&
      message.interface() != surface_.interface) {
    return false;
  }
  connection.send(isForProperties ? answerProperties(message) : answer(message));
  return true;
}

QDBusMessage ExportedObject::answer(const QDBusMessage& call) const {
  const auto found = surface_.methods.find(call.member());
  if (found == surface_.methods.end()) {
    return unknown(call, QDBusError::UnknownMethod, QStringLiteral("method ") + call.member());
  }
  if (call.signature() != found->second.signature) {
    return call.createErrorReply(QDBusError::InvalidArgs,
                                 QStringLiteral("Expected ") + found->second.signature);
  }
  return call.createReply(found->second.call(call.arguments()));
}

QDBusMessage ExportedObject::answerProperties(const QDBusMessage& call) const {
  if (call.member() == QStringLiteral("Get") && call.signature() == QStringLiteral("ss")) {
    return property(call);
  }
  if (call.member() == QStringLiteral("GetAll") && call.signature() == QStringLiteral("s")) {
    return allProperties(call);
  }
  if (call.member() == QStringLiteral("Set")) {
    return call.createErrorReply(QDBusError::PropertyReadOnly,
                                 QStringLiteral("Properties can only be read"));
  }
  return unknown(call, QDBusError::UnknownMethod, QStringLiteral("method ") + call.member());
}

QDBusMessage ExportedObject::property(const QDBusMessage& call) const {
  const auto interface = call.arguments().at(0).toString();
  const auto name = call.arguments().at(1).toString();
  if (!interface.isEmpty() && interface != surface_.interface) {
    return unknown(call, QDBusError::UnknownInterface, QStringLiteral("interface ") + interface);
  }
  const auto values = surface_.properties();
  const auto found = values.find(name);
  if (found == values.end()) {
    return unknown(call, QDBusError::UnknownProperty, QStringLiteral("property ") + name);
  }
  return call.createReply(QVariant::fromValue(QDBusVariant(*found)));
}

QDBusMessage ExportedObject::allProperties(const QDBusMessage& call) const {
  const bool isOurs = call.arguments().at(0).toString() == surface_.interface;
  return call.createReply(QVariant(isOurs ? surface_.properties() : QVariantMap()));
}
}  // namespace orvane
