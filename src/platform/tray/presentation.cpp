#include "platform/tray/presentation.h"
#include <algorithm>
#include <initializer_list>
#include <sstream>
#include <string_view>

namespace orvane {
namespace {
bool isAnyOf(const TrayFacts& facts, std::initializer_list<std::string_view> names) {
  return std::ranges::any_of(facts.desktopNames, [&](const std::string& name) {
    return std::ranges::find(names, name) != names.end();
  });
}

/// Budgie calls itself a kind of GNOME, but has a panel of its own.
bool isGnome(const TrayFacts& facts) {
  return isAnyOf(facts, {"GNOME", "ubuntu", "Unity"}) && !isAnyOf(facts, {"Budgie"});
}
bool isXfce(const TrayFacts& facts) { return isAnyOf(facts, {"XFCE"}); }
bool isMate(const TrayFacts& facts) { return isAnyOf(facts, {"MATE"}); }

/// Xfce's panel is both kinds of host, and better as an old tray.
bool prefersTrayManager(const TrayFacts& facts) {
  return isXfce(facts) || !facts.notifierWatcher || !facts.notifierHost;
}
}  // namespace

Presentation choosePresentation(const TrayFacts& facts) {
  if (facts.trayManager && !facts.dockingFailed && prefersTrayManager(facts)) {
    const bool isWide = (isXfce(facts) || isMate(facts)) && !facts.verticalTray;
    return isWide ? Presentation::dockedWide : Presentation::dockedSquare;
  }
  if (isGnome(facts)) { return Presentation::labelBesideSymbol; }
  if (facts.indicatorService) { return Presentation::labelBesideFile; }
  // The last four run waybar as a rule.
  const bool isWideMate = isMate(facts) && !facts.verticalTray;
  if (isWideMate || isAnyOf(facts, {"sway", "Hyprland", "river", "niri"})) {
    return Presentation::widePixmap;
  }
  return Presentation::square;
}

std::vector<std::string> desktopNames(const std::string& variable) {
  std::vector<std::string> names;
  std::istringstream parts(variable);
  for (std::string name; std::getline(parts, name, ':');) {
    if (!name.empty()) { names.push_back(name); }
  }
  return names;
}
}  // namespace orvane
