#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QString>

namespace orvane {
/// Our drawings of the system symbols, by name ("arrow.clockwise", "hourglass", ...). They are
/// single-colour shapes, drawn in any colour.
[[nodiscard]] bool hasSymbol(const QString& name);

/// The symbol in `color`, `size` logical pixels high, sharp at `devicePixelRatio`; a null pixmap
/// when there is no such symbol.
[[nodiscard]] QPixmap symbolPixmap(const QString& name, int size, const QColor& color,
                                   qreal devicePixelRatio);

/// The symbol for a button, in the colours that `palette` has for the texts of buttons. It is drawn
/// when it is shown, for the size and the screen at hand.
[[nodiscard]] QIcon symbolIcon(const QString& name, const QPalette& palette);

/// Width divided by height of the symbol; 1 when there is no such symbol.
[[nodiscard]] qreal symbolAspectRatio(const QString& name);

/// The application's own icon, in every size it is drawn for.
[[nodiscard]] QIcon applicationIcon();
}  // namespace orvane
