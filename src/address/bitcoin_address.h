#pragma once

#include <string_view>

namespace orvane {
/// Whether `text` has the shape of a Bitcoin mainnet address: family, length and alphabet. No
/// checksum is verified. Does not trim; case is ASCII case, so a look-alike outside ASCII never
/// passes.
[[nodiscard]] bool isValidMainnetAddress(std::string_view text);
}  // namespace orvane
