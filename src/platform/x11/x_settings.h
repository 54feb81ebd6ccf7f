#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>
#include "platform/x11/x11_display.h"

namespace orvane {
/// A whole number among the settings that the desktop hands to GTK programs (XSETTINGS); nothing
/// where nobody hands them out, or not this one as a whole number.
[[nodiscard]] std::optional<int> integerXSetting(const X11Display& display, std::string_view name);

/// The same among settings in their form on the wire.
[[nodiscard]] std::optional<int> integerAmong(const std::vector<std::uint8_t>& settings,
                                              std::string_view name);
}  // namespace orvane
