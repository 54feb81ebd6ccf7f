#include "shell/views/colors.h"
#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <functional>
#include "platform/color/contrast.h"
#include "shell/views/theme.h"

namespace orvane::theme {
namespace {
constexpr double secondaryShare = 0.62;  ///< of text in it; the rest is ground
constexpr double fieldOutlineShare = 0.4;
constexpr double placeholderShare = 0.6;
constexpr double lightThumbShare = 0.9;  ///< of white in it
constexpr double darkThumbShare = 0.2;   ///< of text in it

struct LightAndDark {
  QRgb light;
  QRgb dark;
};

QColor chosen(const LightAndDark& pair, const QPalette& palette) {
  return QColor(isDark(palette) ? pair.dark : pair.light);
}

/// What is asked of colours, by the user's wish.
struct Demands {
  double text;
  double mark;
  double line;
};
constexpr Demands usualDemands{
    .text = readableContrast, .mark = visibleContrast, .line = visibleContrast};
constexpr Demands higherDemands{
    .text = strongContrast, .mark = readableContrast, .line = strongContrast};

/// Of the application, which has its palette and its font as well.
constexpr const char* wishProperty = "higherContrastIsWished";

bool isHigherContrastWished() { return qApp->property(wishProperty).toBool(); }

const Demands& demands() { return isHigherContrastWished() ? higherDemands : usualDemands; }

QColor windowColor(const QPalette& palette) { return palette.color(QPalette::Window); }

/// `tone` as it can be read, or seen, on the ground that `palette` has for windows.
QColor onWindow(const QColor& tone, const QPalette& palette, double ratio) {
  const auto ground = windowColor(palette);
  return withContrast(tone, farthestFrom(ground), {ground}, ratio);
}

/// Secondary, before anything is asked of it.
QColor dimmedText(const QPalette& palette) {
  return between(windowColor(palette), textColor(TextColor::primary, palette),
                 isHigherContrastWished() ? 1 : secondaryShare);
}

QColor markTone(MarkColor color, const QPalette& palette) {
  switch (color) {
    case MarkColor::green:
      return chosen({.light = 0xff28a745, .dark = 0xff32d25c}, palette);
    case MarkColor::orange:
      return chosen({.light = 0xfff08c00, .dark = 0xffff9f1a}, palette);
    case MarkColor::red:
      return chosen({.light = 0xffe03131, .dark = 0xffff5147}, palette);
    case MarkColor::gray:
      return chosen({.light = 0xff8a8f96, .dark = 0xff989da4}, palette);
  }
  return palette.color(QPalette::WindowText);
}

MarkColor tintOf(Ground ground) {
  return ground == Ground::greenCard ? MarkColor::green : MarkColor::orange;
}

/// `palette` in each of its groups, one after the other.
void inEachGroup(QPalette palette,
                 const std::function<void(QPalette::ColorGroup, const QPalette&)>& use) {
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    palette.setCurrentColorGroup(group);
    use(group, palette);
  }
}
}  // namespace

void wishHigherContrast(bool isWished) {
  if (isHigherContrastWished() == isWished) { return; }
  qApp->setProperty(wishProperty, isWished);
  for (auto* const widget : QApplication::allWidgets()) {
    QEvent change(QEvent::PaletteChange);
    QCoreApplication::sendEvent(widget, &change);
  }
}

QColor groundColor(Ground ground, const QPalette& palette) {
  switch (ground) {
    case Ground::greenCard:
    case Ground::orangeCard:
      return between(windowColor(palette), markTone(tintOf(ground), palette), cardFillOpacity);
    case Ground::chip:
      return between(windowColor(palette), dimmedText(palette), chipOpacity);
    case Ground::list:
      return palette.color(QPalette::Base);
  }
  return windowColor(palette);
}

QColor groundOutlineColor(Ground ground, const QPalette& palette) {
  switch (ground) {
    case Ground::greenCard:
    case Ground::orangeCard:
      return isHigherContrastWished()
                 ? outlineColor(palette)
                 : between(groundColor(ground, palette), markTone(tintOf(ground), palette),
                           cardOutlineOpacity);
    case Ground::chip:
      return {};
    case Ground::list:
      return outlineColor(palette);
  }
  return {};
}

QPalette surroundings(const QWidget& widget) {
  return widget.parentWidget() ? widget.parentWidget()->palette() : QGuiApplication::palette();
}

QPalette groundPalette(Ground ground, const QPalette& surroundings) {
  QPalette palette;
  inEachGroup(surroundings, [&](QPalette::ColorGroup group, const QPalette& around) {
    palette.setColor(group, QPalette::Window, groundColor(ground, around));
    if (ground == Ground::list) {
      palette.setColor(group, QPalette::WindowText, around.color(QPalette::Text));
    }
  });
  return palette;
}

QPalette textPalette(TextColor color, const QPalette& surroundings) {
  QPalette palette;
  inEachGroup(surroundings, [&](QPalette::ColorGroup group, const QPalette& around) {
    palette.setColor(group, QPalette::WindowText, textColor(color, around));
    palette.setColor(group, QPalette::Highlight, selectionColor(around));
  });
  return palette;
}

QPalette fieldPalette(const QPalette& surroundings) {
  QPalette palette;
  inEachGroup(surroundings, [&](QPalette::ColorGroup group, const QPalette& around) {
    const auto ground = around.color(QPalette::Base);
    const auto text =
        withContrast(around.color(QPalette::Text), farthestFrom(ground), {ground}, demands().text);
    palette.setColor(group, QPalette::Text, text);
    // Many palettes have no colour for it, and give that of texts.
    palette.setColor(
        group, QPalette::PlaceholderText,
        withContrast(between(ground, text, placeholderShare), text, {ground}, demands().text));
    palette.setColor(group, QPalette::Highlight, selectionColor(around));
  });
  return palette;
}

QColor textColor(TextColor color, const QPalette& palette) {
  const auto readable = [&palette](const QColor& tone) {
    return onWindow(tone, palette, demands().text);
  };
  switch (color) {
    case TextColor::primary:
      return readable(palette.color(QPalette::WindowText));
    case TextColor::secondary:
      return readable(dimmedText(palette));
    case TextColor::green:
      return readable(chosen({.light = 0xff1d7a36, .dark = 0xff45d068}, palette));
    case TextColor::orange:
      return readable(chosen({.light = 0xffa84a00, .dark = 0xffffa733}, palette));
    case TextColor::red:
      return readable(chosen({.light = 0xffc6121f, .dark = 0xffff7a70}, palette));
  }
  return readable(palette.color(QPalette::WindowText));
}

QColor markColor(MarkColor color, const QPalette& palette) {
  return onWindow(markTone(color, palette), palette, demands().mark);
}

QColor linkColor(const QPalette& palette) {
  const auto chosenByDesktop = palette.color(QPalette::Link);
  const bool isNobodysChoice = chosenByDesktop == Qt::blue;
  return onWindow(isNobodysChoice ? chosen({.light = 0xff0b57c4, .dark = 0xff6cb4ff}, palette)
                                  : chosenByDesktop,
                  palette, demands().text);
}

QColor outlineColor(const QPalette& palette) {
  return isHigherContrastWished()
             ? fieldOutlineColor(palette)
             : between(windowColor(palette), dimmedText(palette), panelOutlineOpacity);
}

QColor fieldOutlineColor(const QPalette& palette) {
  return onWindow(
      between(windowColor(palette), textColor(TextColor::primary, palette), fieldOutlineShare),
      palette, demands().line);
}

QColor thumbColor(const QPalette& palette) {
  if (!isDark(palette)) { return between(windowColor(palette), Qt::white, lightThumbShare); }
  return between(windowColor(palette), palette.color(QPalette::WindowText),
                 isHigherContrastWished() ? 0 : darkThumbShare);
}

QColor accentColor(const QPalette& palette) { return accentColor(palette, windowColor(palette)); }

QColor accentColor(const QPalette& palette, const QColor& beside) {
  const auto ground = windowColor(palette);
  return withContrast(palette.color(QPalette::Highlight), farthestFrom(ground), {ground, beside},
                      demands().line);
}

QColor selectionColor(const QPalette& palette) {
  const auto text = palette.color(QPalette::HighlightedText);
  return withContrast(palette.color(QPalette::Highlight), farthestFrom(text), {text},
                      demands().text);
}

QColor withOpacity(QColor color, double opacity) {
  color.setAlphaF(static_cast<float>(opacity));
  return color;
}
}  // namespace orvane::theme
