#pragma once

#include <QKeyEvent>

#include "platform/desktop/desktop_event.h"

namespace orvane {

/// A key press in the desktop's terms. Control is the modifier that shortcuts use.
[[nodiscard]] DesktopEvent keyDownEvent(const QKeyEvent& event);

}  // namespace orvane
