#pragma once

#include <QAbstractNativeEventFilter>
#include <QColor>
#include <functional>
#include <optional>
#include "platform/async/signal.h"
#include "platform/x11/x11_display.h"

namespace orvane {
/// The old system tray of the X screen: the owner of its selection, followed as it comes, goes and
/// is replaced. There is none on other window systems.
class TrayManager final : public QAbstractNativeEventFilter {
 public:
  TrayManager();
  ~TrayManager() override;
  TrayManager(const TrayManager&) = delete;
  TrayManager& operator=(const TrayManager&) = delete;

  /// 0 when there is no tray.
  [[nodiscard]] xcb_window_t window() const { return window_; }
  [[nodiscard]] Registration observe(std::function<void()> listener);

  /// The tray wants windows that are transparent by their alpha channel.
  [[nodiscard]] bool wantsAlpha() const;
  /// The tray stands in a vertical panel.
  [[nodiscard]] bool isVertical() const;
  /// The colour of the panel's texts, where the tray tells it.
  [[nodiscard]] std::optional<QColor> foreground() const;
  /// Tells when the tray may say something else about itself, or the desktop has changed what its
  /// panels look like.
  [[nodiscard]] Registration observeLook(std::function<void()> listener);
  /// Asks the tray to take a window in.
  void requestDock(xcb_window_t icon) const;
  /// Tells of each window of the application that is put into another one.
  [[nodiscard]] Registration observeTaken(std::function<void(xcb_window_t icon)> listener);
  /// The window is inside another one now.
  [[nodiscard]] bool hasTaken(xcb_window_t icon) const;

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

 private:
  void findOwner();
  void findSettings();

  std::optional<X11Display> display_;
  xcb_atom_t selection_ = XCB_ATOM_NONE;
  xcb_atom_t managerMessage_ = XCB_ATOM_NONE;
  xcb_atom_t orientation_ = XCB_ATOM_NONE;
  xcb_atom_t colors_ = XCB_ATOM_NONE;
  xcb_atom_t settings_ = XCB_ATOM_NONE;
  xcb_window_t settingsWindow_ = XCB_WINDOW_NONE;
  xcb_window_t window_ = XCB_WINDOW_NONE;
  Signal<> changed_;
  Signal<> lookChanged_;
  Signal<xcb_window_t> taken_;
};
}  // namespace orvane
