#include "platform/color/contrast.h"
#include <QCheckBox>
#include <QStyleFactory>
#include <iomanip>
#include <iostream>
#include <map>
#include "platform/desktop/qt/color_scheme.h"
#include "shell/views/controls.h"
#include "shell/views/labelled_switch.h"
#include "shell/views/text_field.h"
#include "shell/views/view_fixture.h"

namespace orvane::test { namespace {

using theme::Ground;
using theme::MarkColor;
using theme::TextColor;

struct Desktop {
  const char* name;
  QPalette palette;
};

/// As the desktops' own palettes have them.
QPalette paletteOf(QRgb window, QRgb base, QRgb text, QRgb highlight, QRgb selected, QRgb link) {
  QPalette palette{QColor(window), QColor(window)};
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::PlaceholderText}) {
    palette.setColor(role, QColor(text));
  }
  palette.setColor(QPalette::Base, QColor(base));
  palette.setColor(QPalette::Highlight, QColor(highlight));
  palette.setColor(QPalette::HighlightedText, QColor(selected));
  palette.setColor(QPalette::Link, QColor(link));
  return palette;
}

std::vector<Desktop> desktops() {
  const std::unique_ptr<QStyle> fusion(QStyleFactory::create("fusion"));
  return {
      {"Fusion", fusion->standardPalette()},
      {"dark", paletteOf(0x323232, 0x242424, 0xf0f0f0, 0x308cc6, 0xf0f0f0, 0x308cc6)},
      {"Breeze", paletteOf(0xeff0f1, 0xffffff, 0x232629, 0x3daee9, 0xffffff, 0x2980b9)},
      {"dark", paletteOf(0x2a2e32, 0x1b1e20, 0xfcfcfc, 0x3daee9, 0xfcfcfc, 0x1d99f3)},
      {"Adwaita", paletteOf(0xf6f5f4, 0xffffff, 0x2e3436, 0x3584e4, 0xffffff, 0x1b6acb)},
      {"behind", paletteOf(0xf6f5f4, 0xfcfcfc, 0x929595, 0x3584e4, 0xffffff, 0x1b6acb)},
      {"dark", paletteOf(0x353535, 0x2d2d2d, 0xeeeeec, 0x15539e, 0xffffff, 0x3584e4)},
      {"behind", paletteOf(0x353535, 0x303030, 0x919190, 0x15539e, 0xffffff, 0x3584e4)},
      {"our own", ownPalette(Shade::light)},
      {"dark", ownPalette(Shade::dark)},
  };
}

QColor pixel(QWidget& widget, QPoint place) { return widget.grab().toImage().pixelColor(place); }

/// The contrast of a colour with what a widget paints at the middle of its upper edge, or below it.
double onGround(QWidget& widget, const QColor& color, int below = 3) {
  return contrast(color, pixel(widget, {widget.width() / 2, below}));
}

/// The contrasts found, by what was looked at; the first word is the kind of thing.
using Table = std::map<std::string, std::vector<double>>;

void measureTexts(Table& table, QWidget& ground, const std::string& name) {
  constexpr std::array colors{"primary", "secondary", "green", "orange", "red"};
  for (std::size_t i = 0; i < colors.size(); ++i) {
    const TextLabel label(theme::TextStyle::body, static_cast<TextColor>(i), &ground);
    const auto& palette = label.palette();
    table["text: " + std::string(colors[i]) + " on " + name].push_back(
        onGround(ground, palette.color(QPalette::WindowText)));
    table["text: selected"].push_back(
        contrast(palette.color(QPalette::Highlight), palette.color(QPalette::HighlightedText)));
  }
}

void measureControls(Table& table, QWidget& window) {
  TextField field(&window);
  field.setGeometry(0, 100, 120, 28);
  const auto outline = pixel(field, {60, 0});
  table["line: field to window"].push_back(onGround(window, outline));
  table["line: field to its ground"].push_back(onGround(field, outline));
  for (const auto role : {QPalette::Text, QPalette::PlaceholderText}) {
    table["text: in a field"].push_back(onGround(field, field.palette().color(role)));
  }
  table["text: selected"].push_back(contrast(field.palette().color(QPalette::Highlight),
                                             field.palette().color(QPalette::HighlightedText)));
  LabelledSwitch alerts("", [](bool) {}, &window);
  alerts.move(0, 100);
  auto& box = *alerts.findChild<QCheckBox*>();
  box.resize(box.sizeHint());
  table["line: tick box"].push_back(onGround(window, pixel(box, {box.width() / 2, 2})));
}

/// The chosen choice: its outline to the track, and its text, which is drawn without gaps.
void measurePicker(Table& table, QWidget& ground) {
  SegmentedPicker picker("Unit", {}, {"██", "██"}, [](std::size_t) {}, &ground);
  picker.showChoice(0);
  picker.resize(picker.sizeHint());
  picker.show();
  const auto segments = picker.findChildren<QRadioButton*>();
  for (int i = 0; i < 2; ++i) {
    segments[i]->setGeometry(i * 60, 0, 60, picker.height());
  }
  const auto image = picker.grab().toImage();
  const auto at = [&](int x) { return image.pixelColor(x, picker.height() / 2); };
  segments[0]->clearFocus();
  segments[0]->setFocus(Qt::ShortcutFocusReason);
  const auto ring = pixel(picker, {2, picker.height() / 2});
  for (const auto& beside : {at(6), at(64)}) {
    table["line: focus on the chosen"].push_back(contrast(ring, beside));
  }
  segments[0]->clearFocus();
  table["line: chosen to unchosen"].push_back(contrast(at(2), at(64)));
  table["text: chosen"].push_back(contrast(at(6), at(30)));
  table["text: unchosen"].push_back(contrast(at(64), at(90)));
}

Table measure(const QPalette& palette) {
  Table table;
  QWidget window;
  window.setPalette(palette);
  window.resize(200, 200);
  window.show();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  measureTexts(table, window, "window");
  measureControls(table, window);
  measurePicker(table, window);
  table["text: link"].push_back(onGround(window, theme::linkColor(window.palette())));
  table["line: focus"].push_back(onGround(window, theme::accentColor(window.palette())));
  for (const auto& [ground, name] :
       {std::pair(Ground::greenCard, "green card"), {Ground::orangeCard, "orange card"}}) {
    Card card(ground, &window);
    measureTexts(table, card, name);
    measurePicker(table, card);
    Chip chip(&card);
    measureTexts(table, chip, "chip");
  }
  Panel panel(&window);
  measureTexts(table, panel, "list");
  for (const auto mark : {MarkColor::green, MarkColor::orange, MarkColor::red, MarkColor::gray}) {
    table["mark: state"].push_back(onGround(panel, theme::markColor(mark, panel.palette())));
  }
  return table;
}

class ContrastTest : public testing::TestWithParam<bool> {};

// Each row shows the least that a desktop gets.
TEST_P(ContrastTest, WhatIsPaintedCanBeReadAndSeenOnEveryDesktop) {
  theme::wishHigherContrast(GetParam());
  const std::map<std::string, double> demands =
      GetParam() ? std::map<std::string, double>{{"text", 7}, {"line", 7}, {"mark", 4.5}}
                 : std::map<std::string, double>{{"text", 4.5}, {"line", 3}, {"mark", 3}};
  std::map<std::string, std::string> lines;
  std::string head(32, ' ');
  for (const auto& [name, palette] : desktops()) {
    head += std::string(9 - std::string(name).size(), ' ') + name;
    for (const auto& [pair, ratios] : measure(palette)) {
      const auto least = std::ranges::min(ratios);
      EXPECT_GE(least, demands.at(pair.substr(0, 4)) - 0.005) << pair << " in " << name;
      std::ostringstream text;
      text << std::fixed << std::setprecision(2) << std::setw(9) << least;
      lines[pair] += text.str();
    }
  }
  std::cout << (GetParam() ? "higher contrast\n" : "usual contrast\n") << head << '\n';
  for (const auto& [pair, line] : lines) {
    std::cout << std::left << std::setw(32) << pair << line << '\n';
  }
  theme::wishHigherContrast(false);
}

INSTANTIATE_TEST_SUITE_P(All, ContrastTest, testing::Bool());

}}  // namespace orvane::test
