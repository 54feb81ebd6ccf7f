#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include "platform/desktop/desktop_application.h"
#include "platform/desktop/qt/placement_watch.h"

namespace orvane {
/// A top-level widget as a window of the desktop. Closing it takes it off the screen; it can be
/// shown again, at the same place and with all it contains. It appears as large as the screen lets
/// it, and where the window manager puts it unless that leaves part of it off screen.
class QtDesktopWindow final : public QObject, public DesktopWindow {
  Q_OBJECT

 public:
  /// `onOrderFront` is asked when the window is about to come to the front, for the permission to
  /// take the focus that came with what the user did; empty: none.
  QtDesktopWindow(std::unique_ptr<QWidget> widget,
                  std::function<std::string(QtDesktopWindow&)> onOrderFront);
  ~QtDesktopWindow() override;

  [[nodiscard]] QWidget& widget() const { return *widget_; }

  /// Has the window appear for the first time as the user left it in an earlier run, wholly on a
  /// screen. `keep` hears what is to be handed in here the next time.
  void keepPlacement(const ChosenPlacement& chosen, PlacementWatch::Keep keep) {
    placement_.begin(chosen, std::move(keep));
  }

  /// Brings the window in front of other programs' windows and gives it the keyboard. `token` is
  /// what the program that the user acted in handed on for this purpose; empty: none.
  void activate(const std::string& token);

  [[nodiscard]] std::string title() const override;
  [[nodiscard]] int level() const override { return normalLevel; }
  [[nodiscard]] bool isMiniaturized() const override { return widget_->isMinimized(); }
  [[nodiscard]] bool isVisible() const override;
  [[nodiscard]] bool isKeyWindow() const override;

  void miniaturize() override;
  void deminiaturize() override;
  void orderOut() override;
  void makeKeyAndOrderFront() override;
  void performClose() override;

  void setDelegate(std::weak_ptr<WindowDelegate> delegate) override;
  [[nodiscard]] Registration observe(
      std::function<void(const WindowNotification&)> listener) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] bool canOnlyAppear() const;
  void takePlace();
  void standAt(const QRect& place);
  void comeOntoScreen();
  void remember();
  [[nodiscard]] bool mayClose();
  void handleStateChange();

  std::unique_ptr<QWidget> widget_;
  PlacementWatch placement_;
  std::function<std::string(QtDesktopWindow&)> onOrderFront_;
  std::weak_ptr<WindowDelegate> delegate_;
  Signal<WindowNotification> notifications_;
  bool wasMiniaturized_ = false;
  bool isAppearing_ = false;
  std::optional<RememberedPlace> placeWhenHidden_;
  QPointer<QWidget> focusWhenHidden_;
};

/// The X11 time in a startup id ("host-12-name_TIME4711"); 0 when it has none.
[[nodiscard]] unsigned startupTime(const std::string& token);
}  // namespace orvane
