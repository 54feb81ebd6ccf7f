#include "platform/desktop/qt/save_dialog.h"
#include <QApplication>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QFileDialog>
#include <QTest>
#include <gtest/gtest.h>
#include "platform/bus/exported_object.h"
#include "platform/eventloop/qt_executor.h"

namespace orvane::test { namespace {

/// A portal whose user answers at once, with the code and the file given.
class FileChooser {
 public:
  FileChooser(uint code, QString uri)
      : code_(code),
        uri_(std::move(uri)),
        chooser_(bus_, "/org/freedesktop/portal/desktop",
                 {.interface = "org.freedesktop.portal.FileChooser",
                  .introspection = {},
                  .methods = {{"SaveFile",
                               {"ssa{sv}", [this](const auto& asked) { return answer(asked); }}}},
                  .properties = {}}) {
    bus_.registerService("org.freedesktop.portal.Desktop");
  }
  ~FileChooser() { QDBusConnection::disconnectFromBus("chooser"); }

  QString proposal;

 private:
  QVariantList answer(const QVariantList& asked) {
    const auto options = qdbus_cast<QVariantMap>(asked[2]);
    proposal = options["current_name"].toString();
    // The client's own connection is the only other one on the test's bus with a name of its own.
    const QString path = "/org/freedesktop/portal/desktop/request/" + client + "/" +
                         options["handle_token"].toString();
    auto response = QDBusMessage::createSignal(path, "org.freedesktop.portal.Request", "Response");
    response << code_ << QVariantMap{{"uris", QStringList{uri_}}};
    bus_.send(response);
    return {QVariant::fromValue(QDBusObjectPath(path))};
  }

 public:
  QString client;

 private:
  uint code_;
  QString uri_;
  QDBusConnection bus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "chooser");
  ExportedObject chooser_;
};

TEST(SaveDialogTest, AsksThePortal) {
  for (const uint code : {0U, 1U}) {
    FileChooser chooser(code, "file:///tmp/a%20b.csv");
    QtExecutor executor;
    SessionBus bus(executor);
    chooser.client = bus.connection().baseService().mid(1).replace('.', '_');
    SaveDialog dialog(bus);
    QWidget window;
    QStringList chosen;
    dialog.ask(window, "a.csv", [&](const QString& path) { chosen.append(path); });
    ASSERT_TRUE(QTest::qWaitFor([&] { return chooser.proposal == "a.csv"; }));
    QTest::qWait(50);
    EXPECT_EQ(chosen, code == 0 ? QStringList{"/tmp/a b.csv"} : QStringList());
    EXPECT_EQ(window.findChild<QFileDialog*>(), nullptr);
  }
}

TEST(SaveDialogTest, IsQtsWhereThereIsNoPortal) {
  QtExecutor executor;
  SessionBus bus(executor);
  SaveDialog dialog(bus);
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

}}  // namespace orvane::test
