#include "platform/tray/drawing/status_colors.h"

namespace orvane {

namespace {

struct Shades {
  QRgb onLight;
  QRgb onDark;
  QRgb onUnknown;  ///< a contrast of at least 3.5 to white and to near-black
};

constexpr Shades templates{.onLight = 0xff2e3436, .onDark = 0xfff2f2f2, .onUnknown = 0xff7f8489};
constexpr Shades greens{.onLight = 0xff167a33, .onDark = 0xff3ddc68, .onUnknown = 0xff1f9a44};
constexpr Shades oranges{.onLight = 0xffb45309, .onDark = 0xffffa52e, .onUnknown = 0xffd06a00};

QColor chosen(const Shades& shades, PanelShade shade) {
  switch (shade) {
    case PanelShade::light:
      return QColor(shades.onLight);
    case PanelShade::dark:
      return QColor(shades.onDark);
    case PanelShade::unknown:
      break;
  }
  return QColor(shades.onUnknown);
}

}  // namespace

QColor statusColor(StatusColor color, PanelShade shade) {
  return chosen(color == StatusColor::systemGreen ? greens : oranges, shade);
}

QColor templateColor(PanelShade shade) { return chosen(templates, shade); }

StatusInk inkFor(const StatusImage& image, PanelShade shade) {
  return {
      .symbol = image.symbolColor ? statusColor(*image.symbolColor, shade) : templateColor(shade),
      .text = statusColor(image.textColor, shade)};
}

PanelShade shadeOfBackground(const QColor& background) {
  return qGray(background.rgb()) < 128 ? PanelShade::dark : PanelShade::light;
}

}  // namespace orvane
