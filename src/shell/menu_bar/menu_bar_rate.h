#pragma once

#include <string>

namespace orvane {

/// "12.3 TH": a hash rate, in hashes per second, with three digits or so, for the text beside the
/// status icon. Empty for anything but a rate above zero and up to 1e14.
[[nodiscard]] std::string menuBarRateText(double hashesPerSecond);

}  // namespace orvane
