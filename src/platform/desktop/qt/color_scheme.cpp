#include "platform/desktop/qt/color_scheme.h"
#include <QApplication>
#include <QStyle>
#include <utility>
#include "platform/desktop/qt/look.h"

namespace orvane {
namespace {
QString presentStyle() { return QApplication::style()->name(); }
}  // namespace

ApplicationLook::ApplicationLook() : usersStyle_(presentStyle()), styleInPlace_(usersStyle_) {
  follow(ColorPreference::none);
}

void ApplicationLook::follow(ColorPreference preference) {
  if (presentStyle() != styleInPlace_) {
    usersStyle_ = presentStyle();  // the user has chosen another one meanwhile
  } else if (presentStyle() != usersStyle_) {
    QApplication::setStyle(usersStyle_);
  }
  QApplication::setPalette(QPalette());  // what Qt makes of the desktop by itself
  const auto desktops = QApplication::palette();
  const auto shade = [&] {
    switch (preference) {
      case ColorPreference::dark:
        return Shade::dark;
      case ColorPreference::light:
        return Shade::light;
      case ColorPreference::none:
        break;
    }
    return shadeOf(desktops);
  }();
  const auto look = lookIn(shade, *QApplication::style(), desktops);
  if (look.style != usersStyle_) { QApplication::setStyle(look.style); }
  if (look.palette.resolveMask() != 0) { QApplication::setPalette(look.palette); }
  styleInPlace_ = look.style;
}

ColorScheme::ColorScheme(SessionBus& bus, std::function<void(bool)> wishHigherContrast)
    : preference_(bus, [this](ColorPreference preference) { look_.follow(preference); }),
      contrastWish_(bus, std::move(wishHigherContrast)) {
  preference_.ask(PortalSetting::Start::allowed);
  contrastWish_.ask(PortalSetting::Start::allowed);
}
}  // namespace orvane
