#include "status_item_fixture.h"

namespace orvane::test {
namespace {

using Lines = std::vector<std::string>;

/// "Refresh Now [off] Control+R"
std::string describe(const HostRow& row) {
  if (row.text("type") == QStringLiteral("separator")) { return "-"; }
  auto line = row.text("label");
  if (row.properties.value(QStringLiteral("enabled")) == QVariant(false)) { line += " [off]"; }
  for (const auto& keys : qdbus_cast<QList<QStringList>>(row.properties.value("shortcut"))) {
    line += " " + keys.join(u'+');
  }
  return line.toStdString();
}

class MenuExportTest : public StatusItemTest {
 protected:
  void SetUp() override { createRegisteredItem(); }

  [[nodiscard]] Lines rows() {
    Lines lines;
    for (const auto& row : host->layout().children) {
      lines.push_back(describe(row));
    }
    return lines;
  }
  [[nodiscard]] QVariant reply(const char* method, const QVariantList& arguments) {
    return host->callMenu(method, arguments).arguments().value(0);
  }
  void sendEvent(int row, const char* event) {
    host->callMenu("Event", {row, QLatin1String(event), QVariant::fromValue(QDBusVariant(0)), 0U});
  }
};

TEST_F(MenuExportTest, HasTheRowsOfTheMenu) {
  menu->items[3].title = "Open_Orvane";
  EXPECT_EQ(rows(), (Lines{"Balance 12,345 sats [off]", "Today 815 sats [off]", "-", "Open__Orvane",
                           "Refresh Now Control+R", "Quit Orvane Control+Q"}));
  menu.reset();
  EXPECT_EQ(rows(), Lines{});
}

TEST_F(MenuExportTest, IsBuiltAfreshByWhateverComesBeforeItIsShown) {
  ASSERT_EQ(rows().size(), 6U);
  const QVariant group = QVariant::fromValue(QList<int>{0});
  const std::vector<std::pair<const char*, std::function<void()>>> announcements{
      {"AboutToShow", [&] { host->callMenu("AboutToShow", {0}); }},
      {"AboutToShowGroup", [&] { host->callMenu("AboutToShowGroup", {group}); }},
      {"opened", [&] { sendEvent(0, "opened"); }},
      {"GetLayout", [&] { static_cast<void>(host->layout()); }},
      {"another tool tip", [&] { item->setToolTip("for hosts that announce nothing"); }},
  };
  for (const auto& [name, announce] : announcements) {
    menu = sample(name);
    EXPECT_TRUE(hears("LayoutUpdated", announce)) << name;
  }
}

TEST_F(MenuExportTest, TellsAHostToReadAgainOnlyWhenItSeesADifference) {
  const auto revision = reply("GetLayout", {0, -1, QStringList()}).toUInt();
  EXPECT_EQ(reply("AboutToShow", {0}), QVariant(false));
  menu->items[3].enabled = false;
  EXPECT_EQ(reply("AboutToShow", {0}), QVariant(true));
  EXPECT_EQ(reply("GetLayout", {0, -1, QStringList()}).toUInt(), revision + 1);
}

TEST_F(MenuExportTest, ANumberMeansTheSameRowForAsLongAsAMenuMayBeOpen) {
  const int balance = host->rowId("Balance 12,345 sats");
  const int open = host->rowId("Open Orvane");
  menu = sample("2 sats");
  menu->items.erase(menu->items.begin() + 1);
  EXPECT_EQ(host->rowId("Open Orvane"), open);
  EXPECT_TRUE(host->layout(balance).properties.isEmpty()) << "nobody else got the number";
}

TEST_F(MenuExportTest, AChosenRowActsAndAFigureOrAGoneRowDoesNot) {
  menu->items.front().action = [this] { log.emplace_back("figure"); };
  const int figure = host->rowId("Balance 12,345 sats");
  sendEvent(figure, "clicked");
  sendEvent(4711, "clicked");
  sendEvent(host->rowId("Open Orvane"), "hovered");
  sendEvent(host->rowId("Quit Orvane"), "clicked");
  EXPECT_TRUE(QTest::qWaitFor([this] { return !log.empty(); }));
  EXPECT_EQ(log, Lines{"Quit Orvane"});
}

}  // namespace
}  // namespace orvane::test
