#pragma once

#include <QImage>
#include <cstdint>

#include "platform/x11/x11_display.h"

namespace orvane::test {

/// The least that an old system tray does: it owns the selection, takes one window in and gives it
/// a place in a panel of one colour. It has a connection to the X server of its own.
class FakeTray {
 public:
  static constexpr int slotHeight = 22;

  /// `takesWindows` false: it owns the selection and ignores what is asked of it.
  explicit FakeTray(std::uint32_t panelColor, bool takesWindows = true);
  ~FakeTray();
  FakeTray(const FakeTray&) = delete;
  FakeTray& operator=(const FakeTray&) = delete;

  /// Handles what the X server sent since the last call.
  void handleEvents();
  /// The icon as it stands on the screen; null until a window asked to be taken in.
  [[nodiscard]] QImage picture() const;
  /// Clicks on the icon with the pointer.
  static void click(int button);

 private:
  void announce() const;
  void takeIn(xcb_window_t icon);

  xcb_connection_t* connection_;
  X11Display display_;
  bool takesWindows_;
  xcb_window_t panel_;
  xcb_window_t icon_ = XCB_WINDOW_NONE;
};

}  // namespace orvane::test
