#include <QApplication>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QFileDialog>
#include <QTest>
#include <gtest/gtest.h>
#include "platform/bus/exported_object.h"
#include "platform/desktop/qt/login_start.h"
#include "platform/desktop/qt/save_dialog.h"
#include "platform/eventloop/qt_executor.h"
#include "support/memory_defaults.h"

namespace orvane::test { namespace {

/// A portal whose user answers a request at once.
class RequestPortal {
 public:
  RequestPortal(const SessionBus& client, const char* interface, const char* method,
                const char* signature)
      : client_(client.connection().baseService().mid(1).replace('.', '_')),
        portal_(bus_, "/org/freedesktop/portal/desktop",
                {.interface = interface,
                 .introspection = {},
                 .methods = {{method,
                              {signature, [this](const auto& asked) { return answer(asked); }}}},
                 .properties = {}}) {
    bus_.registerService("org.freedesktop.portal.Desktop");
  }
  ~RequestPortal() { QDBusConnection::disconnectFromBus("requests"); }

  uint code = 0;  ///< 1: the user declines
  QVariantMap results;
  QVariantMap options;  ///< of the last request

 private:
  QVariantList answer(const QVariantList& asked) {
    options = qdbus_cast<QVariantMap>(asked.last());
    const QString path = "/org/freedesktop/portal/desktop/request/" + client_ + "/" +
                         options["handle_token"].toString();
    auto response = QDBusMessage::createSignal(path, "org.freedesktop.portal.Request", "Response");
    response << code << results;
    bus_.send(response);
    return {QVariant::fromValue(QDBusObjectPath(path))};
  }

  QString client_;
  QDBusConnection bus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "requests");
  ExportedObject portal_;
};

TEST(SaveDialogTest, AsksThePortal) {
  for (const uint code : {0U, 1U}) {
    QtExecutor executor;
    SessionBus bus(executor);
    RequestPortal chooser(bus, "org.freedesktop.portal.FileChooser", "SaveFile", "ssa{sv}");
    chooser.code = code;
    chooser.results = {{"uris", QStringList{"file:///tmp/a%20b.csv"}}};
    PortalRequests portal(bus);
    SaveDialog dialog(portal);
    QWidget window;
    QStringList chosen;
    dialog.ask(window, "a.csv", [&](const QString& path) { chosen.append(path); });
    ASSERT_TRUE(QTest::qWaitFor([&] { return chooser.options["current_name"] == "a.csv"; }));
    QTest::qWait(50);
    EXPECT_EQ(chosen, code == 0 ? QStringList{"/tmp/a b.csv"} : QStringList());
    EXPECT_EQ(window.findChild<QFileDialog*>(), nullptr);
  }
}

TEST(SaveDialogTest, IsQtsWhereThereIsNoPortal) {
  QtExecutor executor;
  SessionBus bus(executor);
  PortalRequests portal(bus);
  SaveDialog dialog(portal);
  QWidget window;
  window.show();
  QStringList chosen;
  dialog.ask(window, "a.csv", [&](const QString& path) { chosen.append(path); });
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.findChild<QFileDialog*>(); }));
  auto& shown = *window.findChild<QFileDialog*>();
  EXPECT_TRUE(shown.selectedFiles().value(0).endsWith("/a.csv"));
  shown.selectFile("/tmp/b.csv");
  Q_EMIT shown.fileSelected("/tmp/b.csv");
  EXPECT_EQ(chosen, QStringList{"/tmp/b.csv"});
}

TEST(LoginStartTest, IsAsThePortalLastSaidAndIntoTheTray) {
  QtExecutor executor;
  SessionBus bus(executor);
  RequestPortal background(bus, "org.freedesktop.portal.Background", "RequestBackground", "sa{sv}");
  PortalRequests portal(bus);
  MemoryDefaults defaults;
  LoginStart start(portal, defaults);
  const auto isOnAfter = [&](bool wanted, uint code, bool granted) {
    background.options.clear();
    background.code = code;
    background.results = {{"background", true}, {"autostart", granted}};
    start.set(wanted);
    EXPECT_TRUE(QTest::qWaitFor([&] { return background.options.contains("autostart"); }));
    EXPECT_EQ(background.options["autostart"], wanted);
    QTest::qWait(50);
    return start.isOn();
  };
  EXPECT_FALSE(isOnAfter(true, 1, true)) << "declined";
  EXPECT_FALSE(isOnAfter(true, 0, false)) << "not granted";
  EXPECT_TRUE(isOnAfter(true, 0, true));
  EXPECT_TRUE(background.options["commandline"].toStringList().last().contains("start-quietly"));
  EXPECT_FALSE(isOnAfter(false, 0, false));
}

}}  // namespace orvane::test
