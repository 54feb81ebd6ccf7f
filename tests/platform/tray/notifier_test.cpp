#include <QDBusMetaType>
#include <QDir>
#include <QMenu>
#include <set>
#include <gmock/gmock.h>
#include "platform/color/contrast.h"
#include "status_item_fixture.h"
#include "support/fake_portal.h"

namespace orvane::test { namespace {

using testing::ElementsAre;

using NotifierTest = StatusItemTest;

TEST_F(NotifierTest, RegistersWithTheWatchersSuccessorToo) {
  createRegisteredItem();
  host = std::make_unique<FakeHost>();
  host->startWatcher();
  EXPECT_TRUE(isRegistered());
}

TEST_F(NotifierTest, ComesBackWhenTheBusDoes) {
  createRegisteredItem();
  host.reset();
  desktopSession->stopBus();
  desktopSession->startBus();
  host = std::make_unique<FakeHost>();
  host->startWatcher();
  ASSERT_TRUE(isRegistered());
  EXPECT_EQ(host->text("Status"), "Active");
}

TEST_F(NotifierTest, TellsTheseProperties) {
  createRegisteredItem();
  std::vector<std::string> told;
  const auto all = host->allProperties();
  for (auto at = all.begin(); at != all.end(); ++at) {
    const auto* const type = QDBusMetaType::typeToSignature(at->metaType());
    const QString signature = type ? type : at->value<QDBusArgument>().currentSignature();
    told.push_back((at.key() + ' ' + signature + ' ' + at->toString()).trimmed().toStdString());
  }
  EXPECT_THAT(
      told,
      ElementsAre("AttentionIconName s", "AttentionIconPixmap a(iiay)", "AttentionMovieName s",
                  "Category s ApplicationStatus", "IconName s", "IconPixmap a(iiay)",
                  "IconThemePath s", "Id s orvane", "ItemIsMenu b false", "Menu o",
                  "OverlayIconName s", "OverlayIconPixmap a(iiay)", "Status s Active",
                  "Title s Orvane 12,345 sats", "ToolTip (sa(iiay)ss)", "WindowId i 0"));
  EXPECT_TRUE(host->allProperties("org.kde.StatusNotifierItm").isEmpty());
}

TEST_F(NotifierTest, AnnouncesExactlyWhatDiffers) {
  createRegisteredItem();
  // The tool tip is the last to be announced.
  ASSERT_TRUE(hears("NewToolTip", [this] { showText("1,234 sats"); }));
  EXPECT_EQ(host->signalsHeard, (QStringList{"NewIcon", "NewTitle", "NewToolTip"}));
  ASSERT_TRUE(hears("NewToolTip", [this] {
    showText("1,234 sats");
    item->setToolTip("1,234 sats are well");
  }));
  EXPECT_EQ(host->signalsHeard, QStringList{"NewToolTip"});
}

TEST_F(NotifierTest, FollowsTheUsersPreferenceForLightOrDark) {
  FakePortal portal(1);
  createRegisteredItem();
  EXPECT_TRUE(isDrawnFor(PanelShade::dark));
  portal.prefer(2);
  EXPECT_TRUE(isDrawnFor(PanelShade::light));
  portal.prefer(0);
  EXPECT_TRUE(isDrawnFor(PanelShade::unknown));
}

TEST_F(NotifierTest, GnomesPanelIsDarkWhateverTheUserPrefersForWindows) {
  const FakePortal portal(2);
  createRegisteredItem("GNOME");
  EXPECT_TRUE(isDrawnFor(PanelShade::dark));
}

TEST_F(NotifierTest, GnomeWritesTheTextBesideASymbolThatStays) {
  createRegisteredItem("GNOME");
  EXPECT_EQ(host->text("XAyatanaLabel"), "12,345 sats");
  EXPECT_EQ(host->allProperties()["XAyatanaLabelGuide"], "12,345 sats");
  ASSERT_TRUE(hears("XAyatanaNewLabel", [this] { showText("99,999 sats"); }));
  EXPECT_EQ(host->text("XAyatanaLabel"), "99,999 sats");
  EXPECT_FALSE(host->signalsHeard.contains("NewIcon")) << "it has no figure of its own";
}

TEST_F(NotifierTest, GnomeIsToldTwiceOfAnotherSymbolForItMayBeDrawingTheOneBefore) {
  createRegisteredItem("GNOME");
  auto image = sampleImage(*bar, "12,345 sats");
  image.symbolColor.reset();
  ASSERT_TRUE(hears("NewIcon", [&] { item->setImage(image); }));
  EXPECT_TRUE(hears("NewIcon", [] {}));
}

TEST_F(NotifierTest, WideImagesHaveRoomForTheirText) {
  createRegisteredItem("MATE");
  for (const auto& icon : host->icons()) {
    const auto scale = icon.height() / 18.0;
    EXPECT_GT(icon.width(), bar->textSize("12,345 sats", 9 * scale).width + 14 * scale);
    const auto symbol = inkFor(sampleImage(*bar, ""), PanelShade::unknown).symbol;
    EXPECT_FALSE(hasColor(icon.copy(0, 0, 1, icon.height()), symbol)) << "the outline's place";
  }
}

TEST_F(NotifierTest, TheFigureInTheSmallestIconIsOfWholePixels) {
  createRegisteredItem();
  const QImage figure = host->icons().constFirst().copy(0, 11, 16, 4);
  std::set<QRgb> colors;
  for (int at = 0; at < 16 * 4; ++at) {
    colors.insert(figure.pixel(at % 16, at / 16));
  }
  const auto ink = inkFor(sampleImage(*bar, ""), PanelShade::unknown);
  EXPECT_EQ(colors, (std::set<QRgb>{0, ink.text.rgba(), ink.outline->rgba()}));
}

TEST_F(NotifierTest, AnIndicatorServiceThatComesLaterGetsFiles) {
  const QDir runtime(qEnvironmentVariable("XDG_RUNTIME_DIR"));
  const auto fromBefore =
      QStringLiteral("orvane-status-%1/9").arg(QCoreApplication::applicationPid());
  ASSERT_TRUE(runtime.mkpath("orvane-status-999999999") && runtime.mkpath("orvane-status-1") &&
              runtime.mkpath(fromBefore));
  createRegisteredItem();
  const QString before = host->registered.takeLast();
  EXPECT_TRUE(before.startsWith(u':')) << "GNOME may lose an item that has a name";
  host->connection.registerService("org.ayatana.indicator.application");
  ASSERT_TRUE(isRegistered());
  EXPECT_FALSE(host->connection.interface()->isServiceRegistered(before)) << "a ghost";
  EXPECT_FALSE(runtime.exists("orvane-status-999999999")) << "its process has ended";
  EXPECT_FALSE(runtime.exists(fromBefore)) << "a sandbox gives each process the same number";
  EXPECT_TRUE(runtime.exists("orvane-status-1"));

  std::vector<QFileInfo> files;
  for (const auto color : {std::optional<StatusColor>(), std::optional(StatusColor::systemOrange),
                           std::optional(StatusColor::systemGreen)}) {
    auto image = sampleImage(*bar, "1 sats");
    image.symbolColor = color;
    ASSERT_TRUE(hears("NewIcon", [&] { item->setImage(image); }));
    files.emplace_back(host->text("IconThemePath"), host->text("IconName") + ".png");
  }
  EXPECT_FALSE(files[0].exists());
  EXPECT_TRUE(files[1].exists()) << "a late host may still read the one before";
  EXPECT_TRUE(files[2].exists());
  EXPECT_NE(files[1].path(), files[2].path()) << "GTK may not look twice into one folder";
  ASSERT_TRUE(hears("XAyatanaNewLabel", [this] { showText("2 sats"); }));
  EXPECT_FALSE(host->signalsHeard.contains("NewIcon")) << "it has no figure of its own";
  item.reset();
  EXPECT_EQ(runtime.entryList({"orvane-status-*"}, QDir::Dirs), QStringList("orvane-status-1"));
}

TEST_F(NotifierTest, AClickActsWithTheTokenThatCameBeforeIt) {
  createRegisteredItem();
  host->callItem("ProvideXdgActivationToken", {"t1"});
  host->callItem("Activate", {10, 10});
  EXPECT_THAT(log, ElementsAre("token t1", "clicked"));
}

TEST_F(NotifierTest, FiguresInAMenuOfOurOwnCanBeRead) {
  createRegisteredItem();
  for (const auto& palette : {QPalette(), QPalette(QColor(0x35383c), QColor(0x242629))}) {
    QApplication::setPalette(palette);
    host->callItem("ContextMenu", {10, 10});
    auto* const shown = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(shown);
    const auto row = shown->actionGeometry(shown->actions().constFirst());
    const auto ground = shown->grab(row).toImage().pixelColor(row.width() - 3, row.height() / 2);
    EXPECT_GE(contrast(shown->palette().color(QPalette::Disabled, QPalette::Text), ground), 4.5);
  }
  QApplication::setPalette(QPalette());
}

class MenuExportTest : public StatusItemTest {
 protected:
  void SetUp() override { createRegisteredItem(); }

  /// The number of the row with this label; 0 when there is none.
  [[nodiscard]] int rowId(const char* label) {
    for (const auto& row : host->layout().children) {
      if (row.text("label") == QLatin1String(label)) { return row.id; }
    }
    return 0;
  }
  void sendEvent(int row, const char* event) {
    host->callMenu("Event", {row, QLatin1String(event), QVariant::fromValue(QDBusVariant(0)), 0U});
  }
};

TEST_F(MenuExportTest, HasTheRowsOfTheMenu) {
  menu.items[3].title = "Open_Orvane";
  std::vector<std::string> rows;
  for (const auto& row : host->layout().children) {
    auto text = row.text("type") + row.text("label");
    if (row.properties.value("enabled") == QVariant(false)) { text += " [off]"; }
    for (const auto& keys : qdbus_cast<QList<QStringList>>(row.properties.value("shortcut"))) {
      text += " " + keys.join(u'+');
    }
    rows.push_back(text.toStdString());
  }
  EXPECT_THAT(rows, ElementsAre("Balance 12,345 sats [off]", "Today 815 sats [off]", "separator",
                                "Open__Orvane", "Refresh Now Control+R", "Quit Orvane Control+Q"));
  EXPECT_EQ(host->property("TextDirection", NotifierItem::menuPath, "com.canonical.dbusmenu"),
            "ltr");
}

TEST_F(MenuExportTest, IsBuiltAfreshByWhateverComesBeforeItIsShown) {
  static_cast<void>(host->layout());  // from now on it is announced
  const QVariant group = QVariant::fromValue(QList<int>{0});
  const std::vector<std::pair<const char*, std::function<void()>>> occasions{
      {"AboutToShow", [&] { host->callMenu("AboutToShow", {0}); }},
      {"AboutToShowGroup", [&] { host->callMenu("AboutToShowGroup", {group}); }},
      {"opened", [&] { sendEvent(0, "opened"); }},
      {"GetLayout", [&] { static_cast<void>(host->layout()); }},
      {"another tool tip", [&] { item->setToolTip("for hosts that announce nothing"); }},
      {"a notice", [&] { item->noticeMenu(); }},
  };
  for (const auto& [name, happen] : occasions) {
    menu = sample(name);
    EXPECT_TRUE(hears("LayoutUpdated", happen)) << name;
  }
}

TEST_F(MenuExportTest, TellsAGroupsCallerWhatChangedAndWhatIsGone) {
  const auto asked = QVariant::fromValue(QList<int>{0, rowId("Open Orvane"), 4711});
  menu = sample("changed");
  const auto answer = host->callMenu("AboutToShowGroup", {asked});
  EXPECT_THAT(qdbus_cast<QList<int>>(answer.value(0)), ElementsAre(0));
  EXPECT_THAT(qdbus_cast<QList<int>>(answer.value(1)), ElementsAre(4711));
}

TEST_F(MenuExportTest, TellsAHostToReadAgainOnlyWhenItSeesADifference) {
  const auto revision = [this] {
    return host->callMenu("GetLayout", {0, -1, QStringList()}).value(0).toInt();
  };
  const int before = revision();
  EXPECT_THAT(host->callMenu("AboutToShow", {0}), ElementsAre(false));
  menu.items[3].enabled = false;
  EXPECT_THAT(host->callMenu("AboutToShow", {0}), ElementsAre(true));
  EXPECT_EQ(revision(), before + 1);
}

TEST_F(MenuExportTest, ANumberMeansTheSameRowForAsLongAsAMenuMayBeOpen) {
  const int balance = rowId("Balance 12,345 sats");
  const int open = rowId("Open Orvane");
  menu = sample("2 sats");
  menu.items.erase(menu.items.begin() + 1);
  EXPECT_EQ(rowId("Open Orvane"), open);
  EXPECT_TRUE(host->layout(balance).properties.isEmpty()) << "nobody else got the number";
}

TEST_F(MenuExportTest, AChosenRowActsAndAFigureOrAGoneRowDoesNot) {
  menu.items.front().action = [this] { log.emplace_back("figure"); };
  const int figure = rowId("Balance 12,345 sats");
  sendEvent(figure, "clicked");
  sendEvent(4711, "clicked");
  sendEvent(rowId("Open Orvane"), "hovered");
  sendEvent(rowId("Quit Orvane"), "clicked");
  EXPECT_TRUE(QTest::qWaitFor([this] { return !log.empty(); }));
  EXPECT_THAT(log, ElementsAre("Quit Orvane"));
}

}}  // namespace orvane::test
