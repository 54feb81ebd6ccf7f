#include "platform/desktop/qt/color_scheme.h"
#include <QApplication>
#include <QColor>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <memory>
#include <utility>
#include "platform/color/contrast.h"

namespace orvane {
namespace {
/// A palette in short.
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
                             .highlight = 0xff2472d3,
                             .link = 0xff0b57c4};

constexpr Colors darkColors{.window = 0xff242629,
                            .base = 0xff1b1d1f,
                            .button = 0xff35383c,
                            .text = 0xffecedee,
                            .disabledText = 0xff808388,
                            .placeholder = 0xff93979d,
                            .highlight = 0xff2f76c9,
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

/// The colour in the middle of a widget without text.
QColor drawnGround(QWidget& widget, QStyle& style, const QPalette& palette) {
  constexpr QSize size(60, 30);
  widget.setStyle(&style);
  widget.setPalette(palette);
  widget.resize(size);
  return widget.grab().toImage().pixelColor(size.width() / 2, size.height() / 2);
}

/// Whether the style takes the colours of buttons and fields from a palette: what it draws is
/// nearer to the palette's ground than to the text that is to be read there. Styles do not say so
/// themselves, and some take only part of their colours from it.
bool follows(QStyle& style, const QPalette& palette) {
  const auto isGround = [&palette](const QColor& drawn, QPalette::ColorRole ground,
                                   QPalette::ColorRole text) {
    return contrast(drawn, palette.color(ground)) < contrast(drawn, palette.color(text));
  };
  QPushButton button;
  QLineEdit field;
  return isGround(drawnGround(button, style, palette), QPalette::Button, QPalette::ButtonText) &&
         isGround(drawnGround(field, style, palette), QPalette::Base, QPalette::Text);
}

/// What the form of a style in a shade may be called, after the style's other form.
QStringList formsOf(const QString& name, Shade shade) {
  QStringList forms;
  for (const auto& ofDark : {QStringLiteral("-dark"), QStringLiteral("inverse")}) {
    if (shade == Shade::dark) {
      forms.append(name + ofDark);
    } else if (name.endsWith(ofDark)) {
      forms.append(name.chopped(ofDark.size()));
    }
  }
  return forms;
}

QString presentStyle() { return QApplication::style()->name(); }
}  // namespace

Shade shadeOf(const QPalette& palette) { return isDark(palette) ? Shade::dark : Shade::light; }

QPalette ownPalette(Shade shade) {
  return paletteOf(shade == Shade::dark ? darkColors : lightColors);
}

Look lookIn(Shade shade, QStyle& style, const QPalette& desktops) {
  if (shadeOf(desktops) == shade && follows(style, desktops)) { return {style.name(), {}}; }
  const auto own = ownPalette(shade);
  if (follows(style, own)) { return {style.name(), own}; }
  for (const auto& name : formsOf(style.name(), shade)) {
    const std::unique_ptr<QStyle> form(QStyleFactory::create(name));
    if (!form) { continue; }
    auto palette = form->standardPalette();
    form->polish(palette);
    if (shadeOf(palette) == shade && follows(*form, palette)) { return {name, palette}; }
  }
  return {QStringLiteral("fusion"), own};
}

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
