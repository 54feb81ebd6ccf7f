#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include <xcb/xcb.h>

/// What a client says to the window manager and to launchers.
namespace orvane {

/// Sends the message `name` about `window` to whoever manages the screen's windows.
void sendToRoot(xcb_connection_t& connection, xcb_window_t window, std::string_view name,
                const std::array<std::uint32_t, 5>& values);

/// Tells the launcher that what it started under `startupId` has come up, so that its busy sign
/// goes away.
void endStartupSequence(xcb_connection_t& connection, xcb_window_t window,
                        const std::string& startupId);

}  // namespace orvane
