#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvane {
/// Unicode text operations. All texts are UTF-8.

/// Without the white space and line breaks at both ends, in the Unicode sense: no-break space,
/// U+0085 and U+2028 among them.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// ASCII letters in lower case, everything else as it is: a look-alike never becomes a letter.
[[nodiscard]] std::string asciiLowercased(std::string_view text);

/// Whether it is in every normalization as it is.
[[nodiscard]] bool isAscii(std::string_view text);

/// Canonical composition (NFC). A text that is not valid UTF-8 comes back unchanged.
[[nodiscard]] std::string nfcNormalized(std::string_view text);

/// Whether a valid text has nowhere more than 30 combining marks in a row, the limit of the
/// Stream-Safe Text Format (Unicode Standard Annex #15). Others cost the square of such a run to
/// normalize.
[[nodiscard]] bool isStreamSafe(std::string_view text);

/// How many code points a valid text has.
[[nodiscard]] std::size_t characterCount(std::string_view text);

/// False also for overlong forms, surrogates and code points above U+10FFFF.
[[nodiscard]] bool isValidUtf8(std::string_view bytes);

/// The bytes as text; every invalid sequence becomes the replacement character U+FFFD.
[[nodiscard]] std::string decodedLossily(std::string_view bytes);

/// The text for drawing, with every number in it, its sign and separators included, isolated from
/// what stands around it (U+2068, U+2069): in a text that runs from right to left, or whose digits
/// do, two numbers would change places otherwise. A text in which nothing does comes back
/// unchanged.
[[nodiscard]] std::string numbersIsolated(std::string_view text);

/// The text with a visible mark (U+FFFD) for each character that would reorder or break the line
/// around it, or that has no shape at all.
[[nodiscard]] std::string controlsMarked(std::string_view text);

/// Every character that is not a letter, mark or digit replaced by the percent-escapes of its
/// UTF-8 bytes. A text that is not valid UTF-8 comes back unchanged.
[[nodiscard]] std::string percentEscaped(std::string_view text);
}  // namespace orvane
