#pragma once

#include <QRect>
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

namespace orvane {

/// The few requests to the X server that docking needs.

/// Replies and errors of the X library are freed by their receiver.
struct FreeReply {
  void operator()(void* reply) const;
};
template <class Reply>
using XReply = std::unique_ptr<Reply, FreeReply>;

[[nodiscard]] xcb_atom_t internAtom(xcb_connection_t* connection, const char* name);

/// The 32-bit values of a property; empty when there is none.
[[nodiscard]] std::vector<std::uint32_t> propertyValues(xcb_connection_t* connection,
                                                        xcb_window_t window, xcb_atom_t property);

/// The window of the screen that the application's connection was opened for.
[[nodiscard]] xcb_window_t rootWindow(xcb_connection_t* connection);

/// The depth of a visual; 0 when there is no such visual.
[[nodiscard]] int visualDepth(xcb_connection_t* connection, xcb_visualid_t visual);

/// The parent of a window; 0 when there is no such window.
[[nodiscard]] xcb_window_t parentWindow(xcb_connection_t* connection, xcb_window_t window);

/// Where a window is on the screen; empty when there is no such window.
[[nodiscard]] QRect areaOnScreen(xcb_connection_t* connection, xcb_window_t window);

/// Listens to a window in addition to what the application listens to already.
void addEventMask(xcb_connection_t* connection, xcb_window_t window, std::uint32_t mask);

/// The application's connection, shared with Qt; null when it does not run on an X server.
[[nodiscard]] xcb_connection_t* applicationConnection();

/// What a client says to the window manager and to launchers.

/// Sends the message `name` about `window` to whoever manages the screen's windows.
void sendToRoot(xcb_connection_t& connection, xcb_window_t window, std::string_view name,
                const std::array<std::uint32_t, 5>& values);

/// Tells the launcher that what it started under `startupId` has come up, so that its busy sign
/// goes away.
void endStartupSequence(xcb_connection_t& connection, xcb_window_t window,
                        const std::string& startupId);

}  // namespace orvane
