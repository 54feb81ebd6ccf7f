#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMenu>

#include "desktop_session.h"
#include "platform/tray/notifier/notifier_item.h"
#include "status_item_fixture.h"

namespace orvane::test {
namespace {

class NotifierTest : public StatusItemTest {
 protected:
  [[nodiscard]] NotifierPixmaps pixmaps() {
    return qdbus_cast<NotifierPixmaps>(host->property("IconPixmap"));
  }
};

TEST_F(NotifierTest, RegistersWithALateWatcherAndAgainWithItsSuccessor) {
  createItem();
  QTest::qWait(150);
  host->startWatcher();
  ASSERT_TRUE(QTest::qWaitFor([this] { return host->registered.size() == 1; }));
  EXPECT_EQ(
      host->registered.front(),
      QStringLiteral("org.kde.StatusNotifierItem-%1-1").arg(QCoreApplication::applicationPid()));
  host->stopWatcher();
  QTest::qWait(150);
  host->startWatcher();
  EXPECT_TRUE(QTest::qWaitFor([this] { return host->registered.size() == 2; }));
}

TEST_F(NotifierTest, ComesBackWhenTheBusDoes) {
  createRegisteredItem();
  host.reset();
  privateBus().stop();
  QTest::qWait(150);
  privateBus().start();
  host = std::make_unique<FakeHost>();
  host->startWatcher();
  ASSERT_TRUE(QTest::qWaitFor([this] { return !host->registered.isEmpty(); }));
  EXPECT_EQ(host->property("Status"), QStringLiteral("Active"));
}

TEST_F(NotifierTest, TellsEveryPropertyOfTheKindThatHostsExpect) {
  createRegisteredItem();
  showText("7 | 1,234 sats");
  item->setToolTip("Orvane · Balance 7 sats");
  ASSERT_TRUE(hears("NewToolTip"));
  const auto all = host->allProperties();
  const std::vector<std::pair<const char*, const char*>> texts{
      {"Category", "ApplicationStatus"},
      {"Id", "orvane"},
      {"Title", "Orvane 7 | 1,234 sats"},
      {"Status", "Active"},
  };
  for (const auto& [name, value] : texts) {
    EXPECT_EQ(all.value(QLatin1String(name)), QVariant(QLatin1String(value))) << name;
  }
  for (const auto* name : {"IconName", "IconThemePath", "OverlayIconName", "AttentionIconName",
                           "AttentionMovieName"}) {
    EXPECT_EQ(all.value(QLatin1String(name)), QVariant(QString())) << name;
  }
  EXPECT_EQ(all.value(QStringLiteral("WindowId")), QVariant(0));
  EXPECT_EQ(all.value(QStringLiteral("ItemIsMenu")), QVariant(false));
  EXPECT_EQ(qvariant_cast<QDBusObjectPath>(all.value(QStringLiteral("Menu"))).path(),
            QStringLiteral("/MenuBar"));
  for (const auto* name : {"OverlayIconPixmap", "AttentionIconPixmap"}) {
    EXPECT_EQ(qvariant_cast<QDBusArgument>(all.value(QLatin1String(name))).currentSignature(),
              QStringLiteral("a(iiay)"))
        << name;
  }
  EXPECT_EQ(qdbus_cast<NotifierToolTip>(all.value(QStringLiteral("ToolTip"))).title,
            QStringLiteral("Orvane · Balance 7 sats\n7 | 1,234 sats"))
      << "the whole text where the image cannot hold it";
  EXPECT_FALSE(all.contains(QStringLiteral("XAyatanaLabel"))) << "it would stand beside the figure";
  EXPECT_TRUE(host->allProperties("org.kde.StatusNotifierItm").isEmpty());
}

TEST_F(NotifierTest, PixmapsAreGreenInNetworkByteOrder) {
  createRegisteredItem();
  ASSERT_FALSE(pixmaps().isEmpty());
  for (const auto& pixmap : pixmaps()) {
    EXPECT_EQ(pixmap.width, pixmap.height);
    ASSERT_EQ(pixmap.bytes.size(), pixmap.width * pixmap.height * 4);
    int opaque = 0;
    for (qsizetype at = 0; at < pixmap.bytes.size(); at += 4) {
      const auto byte = [&](qsizetype n) { return static_cast<uchar>(pixmap.bytes.at(at + n)); };
      if (byte(0) < 200) { continue; }
      ++opaque;
      EXPECT_GT(byte(2), byte(1));
      EXPECT_GT(byte(2), byte(3));
    }
    EXPECT_GT(opaque, pixmap.height / 2) << pixmap.height;
  }
}

TEST_F(NotifierTest, WideImagesHaveRoomForTheirText) {
  createRegisteredItem({"MATE"});
  for (const auto& pixmap : pixmaps()) {
    const auto scale = pixmap.height / 18.0;
    EXPECT_GT(pixmap.width, bar.textSize("12,345 sats", 9 * scale).width + 14 * scale);
  }
  const auto before = pixmaps().front().width;
  showText("1,234,567 sats");
  ASSERT_TRUE(hears("NewIcon"));
  EXPECT_GT(pixmaps().front().width, before);
}

TEST_F(NotifierTest, AnUnchangedStateAnnouncesNothing) {
  createRegisteredItem();
  showText("12,345 sats");
  QTest::qWait(150);
  EXPECT_TRUE(host->signalsHeard.isEmpty()) << host->signalsHeard.join(u' ').toStdString();
}

TEST_F(NotifierTest, GnomeWritesTheTextBesideASquareSymbol) {
  createRegisteredItem({"GNOME"});
  EXPECT_EQ(host->property("XAyatanaLabel"), QStringLiteral("12,345 sats"));
  showText("12,346 sats");
  ASSERT_TRUE(hears("XAyatanaNewLabel"));
  EXPECT_EQ(host->property("XAyatanaLabel"), QStringLiteral("12,346 sats"));
  EXPECT_EQ(pixmaps().front().width, pixmaps().front().height);
}

TEST_F(NotifierTest, AnIndicatorServiceThatComesLaterGetsFiles) {
  createRegisteredItem();
  host->registered.clear();
  host->own("org.ayatana.indicator.application");
  ASSERT_TRUE(QTest::qWaitFor([this] { return !host->registered.isEmpty(); }));
  const auto folder = host->property("IconThemePath").toString();
  const auto first = host->property("IconName").toString();
  EXPECT_TRUE(QFile::exists(folder + u'/' + first + QStringLiteral(".png")));

  showText("1 sats");
  ASSERT_TRUE(hears("NewIcon"));
  const auto second = host->property("IconName").toString();
  EXPECT_NE(first, second) << "hosts do not read a name twice";
  EXPECT_TRUE(QFile::exists(folder + u'/' + second + QStringLiteral(".png")));

  item.reset();
  EXPECT_FALSE(QDir(folder).exists());
}

TEST_F(NotifierTest, ClicksActivateWithTheTokenThatCameBeforeThemOrShowTheMenu) {
  createRegisteredItem();
  for (const auto& reply : {host->callItem("SecondaryActivate", {1, 1}),
                            host->callItem("XAyatanaSecondaryActivate", {1U}),
                            host->callItem("Scroll", {120, QStringLiteral("vertical")})}) {
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage);
  }
  EXPECT_EQ(host->callItem("Activate", {QStringLiteral("x")}).type(), QDBusMessage::ErrorMessage);
  EXPECT_TRUE(log.empty()) << "only a proper click acts";
  host->callItem("ProvideXdgActivationToken", {QStringLiteral("t1")});
  host->callItem("Activate", {10, 10});
  EXPECT_EQ(log, (std::vector<std::string>{"token t1", "clicked"}));
  host->callItem("ContextMenu", {40, 40});
  const auto* const shown = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(shown, nullptr);
  EXPECT_EQ(shown->actions().size(), 10);
}

}  // namespace
}  // namespace orvane::test
