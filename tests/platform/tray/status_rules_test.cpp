#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <tuple>
#include <gtest/gtest.h>
#include "platform/color/contrast.h"
#include "platform/tray/drawing/short_figure.h"
#include "platform/tray/drawing/status_drawing.h"
#include "platform/tray/notifier/icon_folder.h"
#include "platform/tray/presentation.h"
#include "platform/x11/x_settings.h"

namespace orvane::test { namespace {

TEST(IconFolder, LiesWhereTheHostFindsItFromWithinAFlatpakToo) {
  const QTemporaryDir folder;
  const QString runtime = folder.path();
  const QString info = folder.filePath("flatpak-info");
  EXPECT_EQ(sharedFolder(runtime, info), runtime) << "no Flatpak";

  QFile file(info);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("[Application]\nname=com.quorvex.Orvane\nruntime=runtime/a/b/c\n");
  file.close();
  EXPECT_EQ(sharedFolder(runtime, info), QString()) << "pixmaps then: nothing is shared";
  ASSERT_TRUE(QDir(runtime).mkpath("app/com.quorvex.Orvane"));
  EXPECT_EQ(sharedFolder(runtime, info), runtime + "/app/com.quorvex.Orvane");
}

TEST(Presentation, SuitsTheHostThatWillDrawIt) {
  using enum Presentation;
  // Where there are a watcher (w), a host (h), an indicator service (i) and an old tray (t); the
  // tray is vertical (v) or did not take the window in (f).
  const std::vector<std::tuple<const char*, std::string, Presentation>> cases{
      {"ubuntu:GNOME", "wh", labelBesideSymbol},
      {"GNOME", "", labelBesideSymbol},
      {"Budgie:GNOME", "wht", square},
      {"Budgie:GNOME", "t", dockedSquare},
      {"MATE", "whi", labelBesideFile},
      {"MATE", "wht", widePixmap},
      {"MATE", "whtv", square},
      {"MATE", "t", dockedWide},
      {"MATE", "tv", dockedSquare},
      {"MATE", "", widePixmap},
      {"sway", "wh", widePixmap},
      {"Hyprland", "w", widePixmap},
      {"XFCE", "wht", dockedWide},
      {"XFCE", "whtv", dockedSquare},
      {"XFCE", "whtf", square},
      {"XFCE", "wh", square},
      {"KDE", "wht", square},
      {"", "t", dockedSquare},
      {"", "wt", dockedSquare},
      {"", "", square}};
  for (const auto& [desktop, services, expected] : cases) {
    const TrayFacts facts{.desktopNames = desktopNames(desktop),
                          .notifierWatcher = services.contains('w'),
                          .notifierHost = services.contains('h'),
                          .indicatorService = services.contains('i'),
                          .trayManager = services.contains('t'),
                          .verticalTray = services.contains('v'),
                          .dockingFailed = services.contains('f')};
    EXPECT_EQ(choosePresentation(facts), expected) << desktop << ' ' << services;
  }
}

TEST(StatusInk, StandsOutFromEveryPanelThatItIsFor) {
  const std::vector<std::pair<PanelShade, std::vector<QColor>>> panels{
      {PanelShade::light, {"#ffffff", "#d4d4d4"}},
      {PanelShade::dark, {"#353535", "#000000"}},
      {PanelShade::unknown, {"#ffffff", "#d4d4d4", "#353535", "#000000"}}};
  StatusImage image;
  for (const auto color : {StatusColor::systemGreen, StatusColor::systemOrange}) {
    image.textColor = color;
    for (const auto& [shade, backgrounds] : panels) {
      const auto ink = inkFor(image, shade);
      EXPECT_EQ(ink.text.hue() > 90, color == StatusColor::systemGreen);
      for (const auto& background : backgrounds) {
        const auto outline = ink.outline.value_or(background);
        for (const auto& drawn : {ink.symbol, ink.text}) {
          const auto best = std::max(contrast(drawn, background), contrast(outline, background));
          EXPECT_GE(best, 3) << drawn.name().toStdString() << background.name().toStdString();
          EXPECT_GE(contrast(drawn, outline), 3) << drawn.name().toStdString();
        }
      }
    }
  }
}

TEST(XSettings, FindsANumberBehindOthersAndNothingBeyondTheEnd) {
  using namespace std::string_view_literals;
  constexpr auto wire =
      "\0\0\0\0\1\0\0\0\3\0\0\0"
      "\1\0\1\0t\0\0\0\0\0\0\0\2\0\0\0ab\0\0"
      "\2\0\1\0c\0\0\0\0\0\0\0\1\1\1\1\1\1\1\1"
      "\0\0\2\0sc\0\0\0\0\0\0\2\0\0\0"sv;
  const std::vector<std::uint8_t> settings(wire.begin(), wire.end());
  EXPECT_EQ(integerAmong(settings, "sc"), 2);
  for (std::size_t length = 0; length < settings.size(); ++length) {
    EXPECT_NE(integerAmong({settings.begin(), settings.begin() + length}, "sc"), 2) << length;
  }
}

TEST(ShortFigure, KeepsTheLeadingDigitsOfTheFirstFigure) {
  const std::vector<std::pair<const char*, const char*>> cases{
      {"9,999 sats", "9999"},
      {"12.345 sats", "12k"},
      {"١٢٬٣٤٥ sats", "12k"},
      {"1,999,999 sats", "1.9M"},
      {"2,100,000,000,000,000 sats", "2.1P"},
      {"-12,345 sats", "-12k"},
      {"0.00000000 BTC", "0"},
      {"0.00000001 BTC", ".01µ"},
      {"0.00012345 | 1.00000000 BTC", "123µ"},
      {"0.01234567 BTC", ".012"},
      {"12.34567890 BTC", "12.3"},
      {"", ""}};
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(shortFigure(QString::fromUtf8(text)).toStdString(), expected) << text;
  }
}

TEST(ToolTip, HasTheWholeTextUnlessItSaysItAlready) {
  StatusContent content{.image = StatusImage{}, .toolTip = "Balance 7"};
  content.image->text = "7 | 1,234 sats";
  EXPECT_EQ(content.toolTipWithText(), "Balance 7\n7 | 1,234 sats");
  content.image->text = "7";
  EXPECT_EQ(content.toolTipWithText(), "Balance 7");
}

}}  // namespace orvane::test
