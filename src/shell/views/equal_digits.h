#pragma once

#include <QFont>
#include <QList>
#include <QString>
#include <QTextLayout>

class QPainter;
class QRect;
class QTextDocument;

namespace orvane {
// Figures below each other are compared digit by digit, so their digits must have one width. Many
// interface fonts have such digits only as a feature that older versions of Qt cannot switch on;
// then each digit gets the width of the widest, rather than all of them another typeface.

/// What a line of text needs in a font.
[[nodiscard]] int widthWithEqualDigits(const QFont& font, const QString& text);

/// Draws a line of text in the painter's font and pen at the middle of the box's height, shortened
/// where it is longer than the box. `alignment` is the visual one; the text itself runs in its own
/// direction, whatever the desktop's.
void drawWithEqualDigits(QPainter& painter, const QRect& box, const QString& text,
                         Qt::Alignment alignment);

/// Gives equal width to the digits of a document in its default font.
void equalizeDigits(QTextDocument& document);
}  // namespace orvane
