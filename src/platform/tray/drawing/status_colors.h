#pragma once

#include <QColor>

#include "platform/tray/status_item.h"

namespace orvane {

/// How bright the panel is that the status item stands in, as far as that can be known.
enum class PanelShade { light, dark, unknown };

/// The colours to draw a status image with.
struct StatusInk {
  QColor symbol;
  QColor text;
  bool operator==(const StatusInk&) const = default;
};

/// A colour that stands out from the panel; on an unknown panel one that is readable on light and
/// dark ones alike.
[[nodiscard]] QColor statusColor(StatusColor color, PanelShade shade);
/// The colour of template symbols: the panel's own foreground, as far as it is known.
[[nodiscard]] QColor templateColor(PanelShade shade);

[[nodiscard]] StatusInk inkFor(const StatusImage& image, PanelShade shade);

/// The shade that a panel of this background colour counts as.
[[nodiscard]] PanelShade shadeOfBackground(const QColor& background);

}  // namespace orvane
