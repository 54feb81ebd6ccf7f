#include "platform/desktop/qt/color_scheme.h"

#include <QApplication>

#include "platform/desktop/qt/scheme_palettes.h"

namespace orvane {
namespace {

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

}  // namespace

ColorScheme::ColorScheme() : preference_(QDBusConnection::sessionBus(), &ColorScheme::apply) {
  preference_.ask(PortalColorPreference::Start::allowed);
}

void ColorScheme::apply(ColorPreference preference) {
  QApplication::setPalette(QPalette());  // what Qt makes of the desktop by itself
  const bool dark = isDark(QApplication::palette());
  switch (preference) {
    case ColorPreference::none:
      break;
    case ColorPreference::dark:
      if (!dark) { QApplication::setPalette(darkPalette()); }
      break;
    case ColorPreference::light:
      if (dark) { QApplication::setPalette(lightPalette()); }
      break;
  }
}

}  // namespace orvane
