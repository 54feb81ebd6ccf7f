#pragma once

#include <optional>
#include <string>

namespace orvane {

/// The number that the whole of `text` spells in the syntax of the C library's strtod, with "." as
/// the decimal separator whatever the user's locale: signs, exponents, hexadecimal numbers, "inf"
/// and "nan" count. Nothing for any other text, for the empty one and for one that begins with
/// white space. A number beyond the range of a double is infinite, one too small for it is zero.
[[nodiscard]] std::optional<double> parsePriceText(const std::string& text);

}  // namespace orvane
