#include "platform/desktop/qt/color_scheme.h"
#include <QApplication>
#include <QColor>
#include <QPalette>

namespace orvane {
namespace {
/// A palette in short, for desktops that name a colour scheme without giving Qt its colours.
struct Colors {
  QRgb window;
  QRgb base;
  QRgb button;
  QRgb text;
  QRgb disabledText;
  QRgb placeholder;
  QRgb highlight;
  QRgb link;
};

constexpr Colors lightColors{.window = 0xfff5f5f6,
                             .base = 0xffffffff,
                             .button = 0xfff0f0f2,
                             .text = 0xff1d1f22,
                             .disabledText = 0xff9a9da3,
                             .placeholder = 0xff72767d,
                             .highlight = 0xff2f7de1,
                             .link = 0xff0b57c4};

constexpr Colors darkColors{.window = 0xff242629,
                            .base = 0xff1b1d1f,
                            .button = 0xff35383c,
                            .text = 0xffecedee,
                            .disabledText = 0xff808388,
                            .placeholder = 0xff93979d,
                            .highlight = 0xff3d8be0,
                            .link = 0xff6cb4ff};

QPalette paletteOf(const Colors& colors) {
  // The constructor derives the shades of bevels and shadows from the two grounds.
  QPalette palette(QColor(colors.button), QColor(colors.window));
  palette.setColor(QPalette::Base, QColor(colors.base));
  palette.setColor(QPalette::AlternateBase, QColor(colors.window));
  palette.setColor(QPalette::ToolTipBase, QColor(colors.button));
  palette.setColor(QPalette::ToolTipText, QColor(colors.text));
  palette.setColor(QPalette::Highlight, QColor(colors.highlight));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(colors.link));
  palette.setColor(QPalette::LinkVisited, QColor(colors.link));
  palette.setColor(QPalette::PlaceholderText, QColor(colors.placeholder));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, QColor(colors.text));
    palette.setColor(QPalette::Disabled, role, QColor(colors.disabledText));
  }
  return palette;
}

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}
}  // namespace

ColorScheme::ColorScheme(SessionBus& bus) : preference_(bus, &ColorScheme::apply) {
  preference_.ask(PortalColorPreference::Start::allowed);
}

void ColorScheme::apply(ColorPreference preference) {
  QApplication::setPalette(QPalette());  // what Qt makes of the desktop by itself
  const bool dark = isDark(QApplication::palette());
  switch (preference) {
    case ColorPreference::none:
      break;
    case ColorPreference::dark:
      if (!dark) { QApplication::setPalette(paletteOf(darkColors)); }
      break;
    case ColorPreference::light:
      if (dark) { QApplication::setPalette(paletteOf(lightColors)); }
      break;
  }
}
}  // namespace orvane
