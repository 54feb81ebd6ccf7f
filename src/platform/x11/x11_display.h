#pragma once

#include <QImage>
#include <QRect>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace orvane {
/// The reply to a request, or an event; null where there is none.
struct FreeXReply {
  void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using XReply = std::unique_ptr<Reply, FreeXReply>;

/// The five values of a message between X clients.
using XMessageValues = std::array<std::uint32_t, 5>;

/// An X server over a connection that belongs to somebody else: the few requests of a program that
/// docks in trays and speaks to window managers. Questions wait for their answer; what is sent goes
/// out with the next question or `flush`. Windows of others may be gone at any time: questions
/// about them find nothing then.
class X11Display {
 public:
  explicit X11Display(xcb_connection_t& connection) : connection_(&connection) {}
  /// The one that the application shares with Qt; nothing where it does not run on an X server.
  [[nodiscard]] static std::optional<X11Display> ofApplication();

  [[nodiscard]] xcb_atom_t atom(const char* name) const;
  /// The server's time, in milliseconds; 0 when it cannot be reached.
  [[nodiscard]] static std::uint32_t currentTime();
  [[nodiscard]] bool hasWindowManager() const;

  /// The window of the screen that the connection was opened for.
  [[nodiscard]] xcb_window_t root() const { return screen().root; }
  /// The owner of a selection; 0 when nobody owns it.
  [[nodiscard]] xcb_window_t ownerOf(xcb_atom_t selection) const;
  /// The parent of a window; 0 when there is none.
  [[nodiscard]] xcb_window_t parentOf(xcb_window_t window) const;
  /// Where a window is on the screen.
  [[nodiscard]] QRect areaOf(xcb_window_t window) const;
  /// The depth of a visual; 0 when there is no such visual.
  [[nodiscard]] int depthOf(xcb_visualid_t visual) const;
  /// The 32-bit values of a property; empty when there is none.
  [[nodiscard]] std::vector<std::uint32_t> property(xcb_window_t window, const char* name) const;
  /// The bytes of a property; empty when there is none.
  [[nodiscard]] std::vector<std::uint8_t> bytes(xcb_window_t window, const char* name) const;
  /// What stands on the screen; null where it cannot be read as 32 bits a pixel.
  [[nodiscard]] QImage picture(const QRect& area) const;

  /// Sets a property of the type that has its own name.
  void setProperty(xcb_window_t window, const char* name,
                   const std::vector<std::uint32_t>& values) const;
  void resize(xcb_window_t window, const QSize& size) const;
  /// Listens to a window in addition to what the connection listens to already.
  void addEvents(xcb_window_t window, std::uint32_t mask) const;
  /// Sends `receiver` the message `name` about `window`, by an event that `mask` lets through.
  void send(xcb_window_t receiver, std::uint32_t mask, xcb_window_t window, const char* name,
            const XMessageValues& values) const;
  /// Sends the message to whoever manages the screen's windows.
  void sendToWindowManager(xcb_window_t window, const char* name,
                           const XMessageValues& values) const;
  /// Tells the launcher that what it started under `startupId` has come up as `window`, so that its
  /// busy sign goes away.
  void endStartupSequence(xcb_window_t window, const std::string& startupId) const;
  void flush() const { xcb_flush(connection_); }

 private:
  [[nodiscard]] const xcb_screen_t& screen() const;
  void sendEvent(xcb_window_t receiver, std::uint32_t mask,
                 const xcb_client_message_event_t& message) const;

  xcb_connection_t* connection_;
};
}  // namespace orvane
