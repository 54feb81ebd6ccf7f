#include <QDBusMetaType>
#include <QDir>

#include "desktop_session.h"
#include "platform/tray/drawing/status_drawing.h"
#include "status_item_fixture.h"

namespace orvane::test {
namespace {

/// A portal that prefers light (2), dark (1) or neither (0).
class Portal {
 public:
  Portal(FakeHost& host, uint scheme)
      : object_(host.connection(), "/org/freedesktop/portal/desktop",
                {.interface = "org.freedesktop.portal.Settings",
                 .introspection = {},
                 .methods = {{"Read",
                              {"ss",
                               [scheme](const QVariantList&) {
                                 const QDBusVariant inner(scheme);
                                 const QDBusVariant outer(QVariant::fromValue(inner));
                                 return QVariantList{QVariant::fromValue(outer)};
                               }}}},
                 .properties = {}}) {
    host.own("org.freedesktop.portal.Desktop");
  }
  void prefer(uint scheme) {
    object_.sendSignal("SettingChanged", {"org.freedesktop.appearance", "color-scheme",
                                          QVariant::fromValue(QDBusVariant(scheme))});
  }

 private:
  ExportedObject object_;
};

class NotifierTest : public StatusItemTest {
 protected:
  const QString busName =
      QStringLiteral("org.kde.StatusNotifierItem-%1-1").arg(QCoreApplication::applicationPid());

  /// Whether all sizes of the icon are drawn for such a panel.
  [[nodiscard]] bool isDrawnFor(PanelShade shade) {
    const auto ink = inkFor(sampleImage(*bar, ""), shade).symbol;
    return QTest::qWaitFor([&] {
      const auto icons = host->icons();
      return !icons.isEmpty() &&
             std::ranges::all_of(icons, [&](const QImage& icon) { return hasColor(icon, ink); });
    });
  }
};

TEST_F(NotifierTest, RegistersWithALateWatcherAndAgainWithItsSuccessor) {
  createItem();
  ASSERT_TRUE(QTest::qWaitFor([this] { return host->isOwned(busName); }));
  host->startWatcher();
  ASSERT_TRUE(isRegistered());
  host->stopWatcher();
  host->startWatcher();
  EXPECT_TRUE(QTest::qWaitFor([this] { return host->registered.size() == 2; }));
  EXPECT_EQ(host->registered, (QStringList{busName, busName}));
}

TEST_F(NotifierTest, ComesBackWhenTheBusDoes) {
  createRegisteredItem();
  host.reset();
  privateBus().stop();
  privateBus().start();
  host = std::make_unique<FakeHost>();
  host->startWatcher();
  ASSERT_TRUE(isRegistered());
  EXPECT_EQ(host->text("Status"), QStringLiteral("Active"));
}

TEST_F(NotifierTest, TellsTheseProperties) {
  createRegisteredItem();
  std::string told = "\n";
  const auto all = host->allProperties();
  for (auto at = all.begin(); at != all.end(); ++at) {
    const auto& value = at.value();
    const auto* const type = QDBusMetaType::typeToSignature(value.metaType());
    const auto signature =
        type ? QLatin1String(type) : value.value<QDBusArgument>().currentSignature();
    told += (at.key() + u' ' + signature + u' ' + value.toString()).trimmed().toStdString() + '\n';
  }
  EXPECT_EQ(told, R"(
AttentionIconName s
AttentionIconPixmap a(iiay)
AttentionMovieName s
Category s ApplicationStatus
IconName s
IconPixmap a(iiay)
IconThemePath s
Id s orvane
ItemIsMenu b false
Menu o
OverlayIconName s
OverlayIconPixmap a(iiay)
Status s Active
Title s Orvane 12,345 sats
ToolTip (sa(iiay)ss)
WindowId i 0
)");
  EXPECT_TRUE(host->allProperties("org.kde.StatusNotifierItm").isEmpty());
}

TEST_F(NotifierTest, AnnouncesExactlyWhatDiffers) {
  createRegisteredItem();
  // The tool tip is the last to be announced.
  ASSERT_TRUE(hears("NewToolTip", [this] { item->setImage(sampleImage(*bar, "1,234 sats")); }));
  EXPECT_EQ(host->signalsHeard, (QStringList{"NewIcon", "NewTitle", "NewToolTip"}));
  ASSERT_TRUE(hears("NewToolTip", [this] {
    showText("1,234 sats");
    item->setToolTip("1,234 sats are well");
  }));
  EXPECT_EQ(host->signalsHeard, QStringList{"NewToolTip"});
}

TEST_F(NotifierTest, FollowsTheUsersPreferenceForLightOrDark) {
  Portal portal(*host, 1);
  createRegisteredItem();
  EXPECT_TRUE(isDrawnFor(PanelShade::dark));
  portal.prefer(2);
  EXPECT_TRUE(isDrawnFor(PanelShade::light));
  portal.prefer(0);
  EXPECT_TRUE(isDrawnFor(PanelShade::unknown));
}

TEST_F(NotifierTest, GnomesPanelIsDarkWhateverTheUserPrefersForWindows) {
  const Portal portal(*host, 2);
  createRegisteredItem("GNOME");
  EXPECT_TRUE(isDrawnFor(PanelShade::dark));
}

TEST_F(NotifierTest, GnomeWritesTheTextBesideASymbolThatStays) {
  createRegisteredItem("GNOME");
  EXPECT_EQ(host->text("XAyatanaLabel"), QStringLiteral("12,345 sats"));
  ASSERT_TRUE(hears("XAyatanaNewLabel", [this] { showText("99,999 sats"); }));
  EXPECT_EQ(host->text("XAyatanaLabel"), QStringLiteral("99,999 sats"));
  EXPECT_FALSE(host->signalsHeard.contains("NewIcon")) << "it has no figure of its own";
}

TEST_F(NotifierTest, WideImagesHaveRoomForTheirText) {
  createRegisteredItem("MATE");
  for (const auto& icon : host->icons()) {
    const auto scale = icon.height() / 18.0;
    EXPECT_GT(icon.width(), bar->textSize("12,345 sats", 9 * scale).width + 14 * scale);
  }
}

TEST_F(NotifierTest, AnIndicatorServiceThatComesLaterGetsFiles) {
  const QDir runtime(qEnvironmentVariable("XDG_RUNTIME_DIR"));
  const QString leftover = "orvane-status-999999999";
  const QString ofAnother = "orvane-status-1";
  ASSERT_TRUE(runtime.mkpath(leftover) && runtime.mkpath(ofAnother));
  createRegisteredItem();
  host->registered.clear();
  host->own("org.ayatana.indicator.application");
  ASSERT_TRUE(isRegistered());
  EXPECT_FALSE(runtime.exists(leftover));
  EXPECT_TRUE(runtime.exists(ofAnother));

  const QDir folder(host->text("IconThemePath"));
  QStringList files;
  for (const auto* text : {"1 sats", "2 sats", "3 sats"}) {
    ASSERT_TRUE(hears("NewIcon", [&] { showText(text); }));
    files.append(host->text("IconName") + ".png");
  }
  EXPECT_EQ(folder.entryList(QDir::Files), files.mid(1))
      << "a name of its own for each, and a late host may still read the one before";
  item.reset();
  EXPECT_FALSE(folder.exists());
}

TEST_F(NotifierTest, OnlyAProperClickActsWithTheTokenThatCameBeforeIt) {
  createRegisteredItem();
  host->callItem("SecondaryActivate", {1, 1});
  host->callItem("Scroll", {120, "vertical"});
  EXPECT_EQ(host->callItem("Activate", {"x"}).type(), QDBusMessage::ErrorMessage);
  host->callItem("ProvideXdgActivationToken", {"t1"});
  host->callItem("Activate", {10, 10});
  EXPECT_EQ(log, (std::vector<std::string>{"token t1", "clicked"}));
}

}  // namespace
}  // namespace orvane::test
