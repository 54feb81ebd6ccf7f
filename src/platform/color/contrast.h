#pragma once

#include <QColor>
#include <QPalette>
#include <initializer_list>

namespace orvane {
/// The contrast of two opaque colours as accessibility guidelines define it, from 1 to 21.
[[nodiscard]] double contrast(const QColor& a, const QColor& b);

/// Contrast at which a text can be read, and at which a thing can be seen.
inline constexpr double readableContrast = 4.5;
inline constexpr double visibleContrast = 3;
/// What is asked of both where the user wishes for higher contrast.
inline constexpr double strongContrast = 7;

/// `share` of 0 to 1 of the way from one opaque colour to the other.
[[nodiscard]] QColor between(const QColor& from, const QColor& to, double share);

/// `tone`, moved towards `end` until its contrast with each ground is at least `ratio`; `end` where
/// nothing before it is enough.
[[nodiscard]] QColor withContrast(const QColor& tone, const QColor& end,
                                  std::initializer_list<QColor> grounds, double ratio);

/// Black or white, whichever is seen better on `ground`.
[[nodiscard]] QColor farthestFrom(const QColor& ground);

/// Whether a palette has windows that are darker than the texts on them.
[[nodiscard]] bool isDark(const QPalette& palette);

/// The same palette, in which menu rows that are switched off can still be read: their contrast is
/// at least 4.5, or that of other rows where that is less. The desktop's own colour for them is
/// kept where it is readable.
[[nodiscard]] QPalette withReadableDisabledText(QPalette palette);
}  // namespace orvane
