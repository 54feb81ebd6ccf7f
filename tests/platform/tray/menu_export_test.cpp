#include "status_item_fixture.h"

namespace orvane::test {
namespace {

/// "Refresh Now [off] Control+R"
std::string describe(const MenuLayoutNode& row) {
  const auto text = [&](const char* name) {
    return row.properties.value(QLatin1String(name)).toString().toStdString();
  };
  if (text("type") == "separator") { return "-"; }
  auto line = text("label");
  if (!row.properties.value(QStringLiteral("enabled"), true).toBool()) { line += " [off]"; }
  const auto shortcut = qdbus_cast<MenuShortcut>(row.properties.value(QStringLiteral("shortcut")));
  if (!shortcut.isEmpty()) { line += " " + shortcut.front().join(u'+').toStdString(); }
  return line;
}

class MenuExportTest : public StatusItemTest {
 protected:
  void SetUp() override {
    menu = sample("1 sats");
    createRegisteredItem();
  }
  [[nodiscard]] std::vector<std::string> rows() {
    std::vector<std::string> lines;
    for (const auto& child : host->layout().children) {
      lines.push_back(describe(qdbus_cast<MenuLayoutNode>(child.variant())));
    }
    return lines;
  }
};

TEST_F(MenuExportTest, IsBuiltAfreshEachTimeItIsAboutToShow) {
  EXPECT_EQ(rows(),
            (std::vector<std::string>{"Balance 1 sats [off]", "Today 815 sats [off]", "-",
                                      "Open Orvane", "Refresh Now Control+R", "-", "Orvane Help",
                                      "About Orvane", "-", "Quit Orvane Control+Q"}));
  const int open = host->rowId("Open Orvane");
  const int balance = host->rowId("Balance 1 sats");
  menu = sample("2 sats");
  EXPECT_EQ(host->callMenu("AboutToShow", {0}).arguments().value(0), QVariant(true));
  EXPECT_EQ(host->callMenu("AboutToShow", {0}).arguments().value(0), QVariant(false));
  EXPECT_EQ(rows().front(), "Balance 2 sats [off]");
  EXPECT_NE(host->rowId("Balance 2 sats"), balance);
  EXPECT_EQ(host->rowId("Open Orvane"), open) << "a menu that is open means this row by its number";

  menu.reset();
  host->callMenu("Event", {0, QStringLiteral("opened"), QVariant::fromValue(QDBusVariant(0)), 0U});
  EXPECT_TRUE(rows().empty());
  menu = sample("3 sats");
  host->callMenu("AboutToShowGroup", {QVariant::fromValue(QList<int>{0})});
  EXPECT_EQ(rows().front(), "Balance 3 sats [off]");
}

TEST_F(MenuExportTest, HostsThatNeverAskAgainHearOfAChange) {
  EXPECT_EQ(rows().front(), "Balance 1 sats [off]");
  host->signalsHeard.clear();
  menu = sample("3 sats");
  item->setToolTip("Orvane · Balance 3 sats");
  EXPECT_TRUE(QTest::qWaitFor(
      [this] { return host->signalsHeard.contains(QStringLiteral("LayoutUpdated")); }));
}

TEST_F(MenuExportTest, AChosenRowActsAfterTheReplyAndAFigureNever) {
  menu->items.front().action = [this] { log.emplace_back("figure"); };
  const auto clicked = [](int id) {
    return MenuEvent{.id = id, .name = QStringLiteral("clicked"), .data = QDBusVariant(0)};
  };
  host->callMenu("Event", {host->rowId("Open Orvane"), QStringLiteral("clicked"),
                           QVariant::fromValue(QDBusVariant(0)), 0U});
  const MenuEvents events{clicked(host->rowId("Balance 1 sats")), clicked(4711),
                          clicked(host->rowId("Quit Orvane"))};
  const auto reply = host->callMenu("EventGroup", {QVariant::fromValue(events)});
  EXPECT_EQ(qdbus_cast<QList<int>>(reply.arguments().value(0)), QList<int>{4711});
  EXPECT_TRUE(QTest::qWaitFor([this] { return log.size() == 2; }));
  EXPECT_EQ(log, (std::vector<std::string>{"Open Orvane", "Quit Orvane"}));
}

TEST_F(MenuExportTest, PropertiesAreToldForAllRowsOrForOne) {
  const int open = host->rowId("Open Orvane");
  const auto all =
      host->callMenu("GetGroupProperties", {QVariant::fromValue(QList<int>()), QStringList()});
  EXPECT_EQ(qdbus_cast<MenuRowPropertiesList>(all.arguments().value(0)).size(), 11);
  const auto label = host->callMenu("GetProperty", {open, QStringLiteral("label")});
  EXPECT_EQ(qvariant_cast<QDBusVariant>(label.arguments().value(0)).variant(),
            QStringLiteral("Open Orvane"));
}

}  // namespace
}  // namespace orvane::test
