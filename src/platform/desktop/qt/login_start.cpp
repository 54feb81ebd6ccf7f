#include "platform/desktop/qt/login_start.h"
#include <QFile>
#include <QStringList>

namespace orvane {
namespace {
constexpr const char* startsAtLoginKey = "startsAtLogin";

/// Into the tray, by the bus; where the bus cannot start it, with its window.
const QStringList commandLine{
    QStringLiteral("sh"), QStringLiteral("-c"),
    QStringLiteral("gapplication action com.quorvex.Orvane start-quietly || exec orvane")};
}  // namespace

bool isInFlatpak() { return QFile::exists(flatpakInfoFile); }

bool LoginStart::isOn() const { return defaults_.boolean(startsAtLoginKey).value_or(false); }

void LoginStart::set(bool on) {
  portal_.send(
      {.interface = QStringLiteral("org.freedesktop.portal.Background"),
       .method = QStringLiteral("RequestBackground"),
       .arguments = {QString()},
       .options = {{QStringLiteral("reason"),
                    QObject::tr("Orvane keeps the balance in the tray without a window.")},
                   {QStringLiteral("autostart"), on},
                   {QStringLiteral("commandline"), commandLine},
                   {QStringLiteral("dbus-activatable"), false}}},
      [this](const QVariantMap& results) {
        defaults_.setBoolean(startsAtLoginKey, results.value(QStringLiteral("autostart")).toBool());
      },
      [] {});
}
}  // namespace orvane
