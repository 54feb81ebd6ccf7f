#pragma once

#include <QPalette>

namespace orvane {

/// Palettes for desktops that name a colour scheme without giving Qt its colours.
[[nodiscard]] QPalette lightPalette();
[[nodiscard]] QPalette darkPalette();

}  // namespace orvane
