#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "platform/tray/drawing/status_drawing.h"
#include "platform/tray/presentation.h"

namespace orvane::test {
namespace {

/// A desktop where there are a watcher (w), a host (h), an indicator service (i) and an old tray
/// (t); the tray did not take the window in (f).
TrayFacts on(const char* desktop, std::string_view services) {
  return {.desktopNames = desktopNames(desktop),
          .notifierWatcher = services.contains('w'),
          .notifierHost = services.contains('h'),
          .indicatorService = services.contains('i'),
          .trayManager = services.contains('t'),
          .dockingFailed = services.contains('f')};
}

TEST(Presentation, SuitsTheHostThatWillDrawIt) {
  const std::vector<std::tuple<const char*, const char*, Presentation>> cases{
      {"ubuntu:GNOME", "wh", Presentation::labelBesideSymbol},
      {"GNOME", "", Presentation::labelBesideSymbol},
      {"MATE", "whi", Presentation::wideFile},
      {"MATE", "wht", Presentation::widePixmap},
      {"MATE", "", Presentation::widePixmap},
      {"sway", "wh", Presentation::widePixmap},
      {"Hyprland", "w", Presentation::widePixmap},
      {"XFCE", "wht", Presentation::dockedWide},
      {"XFCE", "whtf", Presentation::square},
      {"XFCE", "wh", Presentation::square},
      {"KDE", "wht", Presentation::square},
      {"", "t", Presentation::dockedSquare},
      {"", "wt", Presentation::dockedSquare},
      {"", "", Presentation::square},
  };
  for (const auto& [desktop, services, expected] : cases) {
    EXPECT_EQ(choosePresentation(on(desktop, services)), expected) << desktop << ' ' << services;
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
      {"203 | 0 sats", "203"},
      {"0.00000000 BTC", "0"},
      {"0.00000001 BTC", ".01µ"},
      {"0.00012345 | 1.00000000 BTC", "123µ"},
      {"0.01234567 BTC", ".012"},
      {"12.34567890 BTC", "12.3"},
      {"", ""},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(shortFigure(QString::fromUtf8(text)).toStdString(), expected) << text;
  }
}

}  // namespace
}  // namespace orvane::test
