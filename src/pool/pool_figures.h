#pragma once

#include <cstdint>
#include <string_view>

namespace orvane {

/// How the pool writes its figures.

/// Hashes per second in one `unit`, for example 1e9 for "Gh/s"; up to petahashes, with letters in
/// either case, and with or without the slash. White space around the unit does not count. Any
/// other text is factor 1: the number stays as it is.
[[nodiscard]] double hashRateUnitFactor(std::string_view unit);

/// The amount of a decimal text in BTC ("0.00012345"), in satoshis; 0 when the text is not a number
/// as a whole. A fraction of a satoshi is rounded to the nearest, halves away from zero; amounts
/// beyond the 64-bit range become its ends.
[[nodiscard]] std::int64_t satsFromBTCText(std::string_view text);

/// Shares from the pool's share figure, which counts in 1,024ths: to the nearest, halves away from
/// zero; figures beyond the 64-bit range become its ends.
[[nodiscard]] std::int64_t sharesFromPoolFigure(double figure);

}  // namespace orvane
