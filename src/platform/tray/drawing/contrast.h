#pragma once

#include <QColor>
#include <QPalette>

namespace orvane {
/// The contrast of two opaque colours as accessibility guidelines define it, from 1 to 21.
[[nodiscard]] double contrast(const QColor& a, const QColor& b);

/// The same palette, in which menu rows that are switched off can still be read: their contrast is
/// at least 4.5, or that of other rows where that is less. The desktop's own colour for them is
/// kept where it is readable.
[[nodiscard]] QPalette withReadableDisabledText(QPalette palette);
}  // namespace orvane
