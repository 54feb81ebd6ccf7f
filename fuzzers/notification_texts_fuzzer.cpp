// Any text in a notification: the service gets its title as it is and its body as markup that says
// the same, control characters apart. The first line of the input is the title, the rest is the
// body.

#include <QXmlStreamReader>
#include <algorithm>
#include "bus_session.h"
#include "platform/async/task_scope.h"
#include "platform/bus/exported_object.h"
#include "platform/notifications/desktop_notification_center.h"
#include "platform/text/unicode.h"

namespace orvane {
namespace {
/// What the markup says; ends the program when it is none or holds an element.
QString textOf(const QString& markup) {
  QXmlStreamReader reader(QStringLiteral("<body>%1</body>").arg(markup));
  reader.readNextStartElement();
  const QString text = reader.readElementText();  // fails at an element
  require(!reader.hasError());
  return text;
}

/// The text without what cannot be shown.
QString readable(const std::string& text) {
  QString result = QString::fromStdString(text);
  std::ranges::replace_if(
      result,
      [](QChar c) {
        return (c < u' ' && c != u'\n') || (c >= u'\u007f' && c < u'\u00a0') || c >= u'\ufffe' ||
               (c >= u'\ufdd0' && c <= u'\ufdef');
      },
      u'\ufffd');
  return result;
}

/// The notification service, on the stranger's connection.
class NotificationsOnBus {
 public:
  NotificationsOnBus() {
    require(session_.stranger().registerService(QStringLiteral("org.freedesktop.Notifications")));
  }

  void show(NotificationRequest request) {
    isTaken_ = false;
    tasks_.spawn(add(std::move(request)));
    session_.letPassUntil([this] { return isTaken_; });
  }

  [[nodiscard]] QString title() const { return received_.at(3).toString(); }
  [[nodiscard]] QString body() const { return received_.at(4).toString(); }

 private:
  Task<void> add(NotificationRequest request) {
    isTaken_ = co_await center_.add(std::move(request));
    require(isTaken_);
  }

  BusSession session_;
  QVariantList received_;
  bool isTaken_ = false;
  ExportedObject service_{
      session_.stranger(), QStringLiteral("/org/freedesktop/Notifications"),
      ObjectSurface{.interface = QStringLiteral("org.freedesktop.Notifications"),
                    .introspection = {},
                    .methods = {{QStringLiteral("GetCapabilities"),
                                 {QString(),
                                  [](const QVariantList&) {
                                    return QVariantList{QStringList{QStringLiteral("body-markup")}};
                                  }}},
                                {QStringLiteral("Notify"),
                                 {QStringLiteral("susssasa{sv}i"),
                                  [this](const QVariantList& arguments) {
                                    received_ = arguments;
                                    return QVariantList{1U};
                                  }}}},
                    .properties = [] { return QVariantMap(); }}};
  DesktopNotificationCenter center_{session_.bus(), std::chrono::seconds(5)};
  TaskScope tasks_{session_.executor()};
};
}  // namespace

void tryInput(std::string_view input) {
  static NotificationsOnBus desktop;
  const std::string title(takeLine(input));
  const std::string body(input);
  desktop.show({.identifier = "test", .title = title, .body = body});
  require(desktop.title() == readable(title));
  require(textOf(desktop.body()) == readable(numbersIsolated(body)));
}
}  // namespace orvane
