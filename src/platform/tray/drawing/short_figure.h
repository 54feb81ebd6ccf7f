#pragma once

#include <QString>

namespace orvane {
/// The first figure of a status text in at most five characters, cut off rather than rounded up:
/// "12,345 sats" is "12k", "0.00012345 | 1.00000000 BTC" is "123µ". A text of another kind gives
/// its first word.
[[nodiscard]] QString shortFigure(const QString& text);
}  // namespace orvane
