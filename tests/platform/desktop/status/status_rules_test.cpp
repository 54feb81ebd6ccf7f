#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/desktop/status/bus/menu_model.h"
#include "platform/desktop/status/drawing/short_figure.h"
#include "platform/desktop/status/presentation.h"

namespace orvane::test {
namespace {

struct Surroundings {
  std::string name;
  TrayFacts facts;
  Presentation expected;
};

constexpr bool yes = true;

const std::vector<Surroundings> surroundings{
    {"GNOME with its extension",
     {.desktopNames = {"ubuntu", "GNOME"}, .notifierWatcher = yes, .notifierHost = yes},
     Presentation::labelBesideSymbol},
    {"GNOME without any host yet", {.desktopNames = {"GNOME"}}, Presentation::labelBesideSymbol},
    {"MATE's indicator applet",
     {.desktopNames = {"MATE"},
      .notifierWatcher = yes,
      .notifierHost = yes,
      .indicatorService = yes},
     Presentation::wideFile},
    {"MATE's notification area, which is an old tray too",
     {.desktopNames = {"MATE"}, .notifierWatcher = yes, .notifierHost = yes, .trayManager = yes},
     Presentation::widePixmap},
    {"MATE before its panel", {.desktopNames = {"MATE"}}, Presentation::widePixmap},
    {"sway with waybar",
     {.desktopNames = {"sway"}, .notifierWatcher = yes, .notifierHost = yes},
     Presentation::widePixmap},
    {"Hyprland", {.desktopNames = {"Hyprland"}, .notifierWatcher = yes}, Presentation::widePixmap},
    {"Xfce on X11",
     {.desktopNames = {"XFCE"}, .notifierWatcher = yes, .notifierHost = yes, .trayManager = yes},
     Presentation::dockedWide},
    {"Xfce whose tray refused the window",
     {.desktopNames = {"XFCE"},
      .notifierWatcher = yes,
      .notifierHost = yes,
      .trayManager = yes,
      .dockingFailed = yes},
     Presentation::square},
    {"Xfce on Wayland",
     {.desktopNames = {"XFCE"}, .notifierWatcher = yes, .notifierHost = yes},
     Presentation::square},
    {"Plasma",
     {.desktopNames = {"KDE"}, .notifierWatcher = yes, .notifierHost = yes, .trayManager = yes},
     Presentation::square},
    {"LXQt",
     {.desktopNames = {"LXQt"}, .notifierWatcher = yes, .notifierHost = yes},
     Presentation::square},
    {"an old tray alone", {.trayManager = yes}, Presentation::dockedSquare},
    {"an old tray beside a watcher whose host is gone",
     {.notifierWatcher = yes, .trayManager = yes},
     Presentation::dockedSquare},
    {"nothing at all", {}, Presentation::square},
};

TEST(Presentation, SuitsTheHostThatWillDrawIt) {
  for (const auto& [name, facts, expected] : surroundings) {
    EXPECT_EQ(choosePresentation(facts), expected) << name;
  }
}

TEST(Presentation, ReadsEveryNameOfTheDesktop) {
  EXPECT_EQ(desktopNames("ubuntu:GNOME"), (std::vector<std::string>{"ubuntu", "GNOME"}));
  EXPECT_TRUE(desktopNames("").empty());
}

TEST(ShortFigure, KeepsTheLeadingDigitsOfTheFirstFigure) {
  const std::vector<std::pair<const char*, const char*>> cases{
      {"0 sats", "0"},
      {"9,999 sats", "9999"},
      {"12,345 sats", "12k"},
      {"12.345 sats", "12k"},
      {"١٢٬٣٤٥ sats", "12k"},
      {"999,999 sats", "999k"},
      {"1,999,999 sats", "1.9M"},
      {"2,100,000,000,000,000 sats", "2.1P"},
      {"-12,345 sats", "-12k"},
      {"203 | 0 sats", "203"},
      {"0.00000000 BTC", "0"},
      {"0.00000001 BTC", ".01µ"},
      {"0.00000123 BTC", "1.2µ"},
      {"0.00012345 | 1.00000000 BTC", "123µ"},
      {"0.01234567 BTC", ".012"},
      {"1.50000000 BTC", "1.50"},
      {"12.34567890 BTC", "12.3"},
      {"123.45678901 BTC", "123"},
      {"12.3 TH", "12.3"},
      {"", ""},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(shortFigure(QString::fromUtf8(text)).toStdString(), expected) << text;
  }
}

Menu menuOf(std::initializer_list<const char*> titles) {
  Menu menu;
  for (const auto* title : titles) {
    menu.items.push_back({.title = title});
  }
  return menu;
}

TEST(MenuModel, CommandsKeepTheirNumbersWhenFiguresChange) {
  MenuModel model;
  EXPECT_TRUE(model.replace(menuOf({"Balance 1 sats", "", "Open", "", "Quit"})));
  const auto before = model.rows();
  const auto revision = model.revision();

  EXPECT_FALSE(model.replace(menuOf({"Balance 1 sats", "", "Open", "", "Quit"})));
  EXPECT_EQ(model.revision(), revision);

  EXPECT_TRUE(model.replace(menuOf({"Balance 2 sats", "Today 0 sats", "", "Open", "", "Quit"})));
  EXPECT_GT(model.revision(), revision);
  EXPECT_EQ(model.rows()[3].id, before[2].id);
  EXPECT_EQ(model.rows()[5].id, before[4].id);
  EXPECT_EQ(model.find(before[0].id), nullptr) << "an old figure's number must not be given anew";
}

}  // namespace
}  // namespace orvane::test
