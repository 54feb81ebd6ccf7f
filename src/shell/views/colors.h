#pragma once

#include <QColor>
#include <QPalette>

class QWidget;

// Colours come out of the desktop's palette: a tone of the design's or the desktop's is made darker
// or lighter until its contrast with the ground that the palette has for windows suffices. What is
// a ground of its own hands a palette on in which that ground is the window's, so whatever stands
// there asks in the same way.

namespace orvane::theme {
/// Whether the user wishes for higher contrast than usual; what is on screen follows.
void wishHigherContrast(bool isWished);

/// Grounds other than the window's own.
enum class Ground { greenCard, orangeCard, chip, list };

[[nodiscard]] QColor groundColor(Ground ground, const QPalette& palette);
/// The line around it; no colour where there is no line.
[[nodiscard]] QColor groundOutlineColor(Ground ground, const QPalette& palette);
/// The palette around a widget that has one of its own.
[[nodiscard]] QPalette surroundings(const QWidget& widget);
/// What is to be set for things that stand on it.
[[nodiscard]] QPalette groundPalette(Ground ground, const QPalette& surroundings);

enum class TextColor { primary, secondary, green, orange, red };

[[nodiscard]] QColor textColor(TextColor color, const QPalette& palette);
/// What is to be set for a text in that colour, active or not.
[[nodiscard]] QPalette textPalette(TextColor color, const QPalette& surroundings);
/// What is to be set for a field, so that its text, placeholder and selection can be read.
[[nodiscard]] QPalette fieldPalette(const QPalette& surroundings);

/// Colours of areas and marks; too light for text on a light ground.
enum class MarkColor { green, orange, red, gray };

[[nodiscard]] QColor markColor(MarkColor color, const QPalette& palette);

/// The colour of a text that opens a page.
[[nodiscard]] QColor linkColor(const QPalette& palette);

/// Lines between and around things, for the eye's rest.
[[nodiscard]] QColor outlineColor(const QPalette& palette);
/// The line around what can be operated.
[[nodiscard]] QColor fieldOutlineColor(const QPalette& palette);
/// What is chosen among choices, within such a line.
[[nodiscard]] QColor thumbColor(const QPalette& palette);
/// The desktop's accent, for what has the focus.
[[nodiscard]] QColor accentColor(const QPalette& palette);
/// The same where it stands between the window's ground and something `beside` it.
[[nodiscard]] QColor accentColor(const QPalette& palette, const QColor& beside);
/// The ground of a selection, under the palette's own text for it.
[[nodiscard]] QColor selectionColor(const QPalette& palette);

/// For what lies over more than one colour. Everything else is opaque: a large translucent area Qt
/// mixes on two threads of its own, which each painting would wake.
[[nodiscard]] QColor withOpacity(QColor color, double opacity);
}  // namespace orvane::theme
