#include "platform/bus/desktop_portal.h"
#include <QDBusArgument>
#include <QDBusVariant>
#include <chrono>
#include <utility>

namespace orvane {
namespace {
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto requestInterface = QStringLiteral("org.freedesktop.portal.Request");
const auto settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const auto appearanceGroup = QStringLiteral("org.freedesktop.appearance");

/// A portal says at once that it has taken a request, or does not; its start takes a moment.
constexpr std::chrono::seconds patience{5};

ColorPreference preferenceIn(const QVariant& value) {
  switch (value.toUInt()) {
    case 1:
      return ColorPreference::dark;
    case 2:
      return ColorPreference::light;
    default:
      return ColorPreference::none;
  }
}

/// `Read` wraps the value once more than the signal does.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) {
    value = value.value<QDBusVariant>().variant();
  }
  return value;
}
}  // namespace

PortalSetting::PortalSetting(SessionBus& bus, QString group, QString key,
                             std::function<void(const QVariant&)> handle)
    : bus_(bus),
      group_(std::move(group)),
      key_(std::move(key)),
      handle_(std::move(handle)),
      changed_(bus, portalPath, settingsInterface, QStringLiteral("SettingChanged"),
               [this](const QDBusMessage& message) {
                 const auto arguments = message.arguments();
                 if (arguments.value(0) == group_ && arguments.value(1) == key_) {
                   handle_(unwrapped(arguments.value(2)));
                 }
               }) {}

void PortalSetting::ask(Start start) {
  auto question = QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface,
                                                 QStringLiteral("Read"));
  question.setAutoStartService(start == Start::allowed);
  question << group_ << key_;
  callOnBus(bus_, question, this, [this](const BusReply& reply) {
    if (reply && reply->value(0).canConvert<QDBusVariant>()) {
      handle_(unwrapped(reply->value(0)));
    }
  });
}

PortalColorPreference::PortalColorPreference(SessionBus& bus,
                                             std::function<void(ColorPreference)> handle)
    : setting_(
          bus, appearanceGroup, QStringLiteral("color-scheme"),
          [handle = std::move(handle)](const QVariant& value) { handle(preferenceIn(value)); }) {}

PortalContrastWish::PortalContrastWish(SessionBus& bus, std::function<void(bool)> handle)
    : handle_(std::move(handle)),
      setting_(bus, appearanceGroup, QStringLiteral("contrast"),
               [this](const QVariant& value) {
                 isWished_ = value.toUInt() == 1;
                 tell();
               }),
      settingOfGnome_(bus, QStringLiteral("org.gnome.desktop.a11y.interface"),
                      QStringLiteral("high-contrast"), [this](const QVariant& value) {
                        isWishedOfGnome_ = value.toBool();
                        tell();
                      }) {}

void PortalContrastWish::ask(PortalSetting::Start start) {
  setting_.ask(start);
  settingOfGnome_.ask(start);
}

void PortalContrastWish::tell() { handle_(isWished_ || isWishedOfGnome_); }

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
