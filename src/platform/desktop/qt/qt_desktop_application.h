#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>
#include "platform/desktop/desktop_application.h"
#include "platform/desktop/qt/qt_desktop_window.h"

class QKeyEvent;

namespace orvane {
/// Sees every key pressed in a window of the application before shortcuts and focused fields do:
/// asks the monitors first, then the keys that work in every window. While a menu is open its keys
/// belong to the menu.
class KeyDispatch final : public QObject {
  Q_OBJECT

 public:
  /// Returns whether the key has been used up.
  using WindowKeys = std::function<bool(const DesktopEvent&)>;

  explicit KeyDispatch(WindowKeys windowKeys);

  [[nodiscard]] Registration addMonitor(DesktopApplication::KeyMonitor monitor) {
    return monitors_.add(std::move(monitor));
  }
  /// The key that monitors and window keys are being asked about.
  [[nodiscard]] const std::optional<DesktopEvent>& currentEvent() const { return currentEvent_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Answer {
    int key;
    bool swallowed;
  };

  [[nodiscard]] bool answer(const QKeyEvent& key);

  WindowKeys windowKeys_;
  Listeners<DesktopApplication::KeyMonitor> monitors_;
  std::optional<DesktopEvent> currentEvent_;
  std::optional<Answer> answered_;
  int swallowedKey_ = 0;  ///< the last key pressed, if it was used up
};

/// The running QApplication as the desktop's application. In every window Control with W closes
/// it, with M minimises it and with Q ends the application; closing windows never does.
class QtDesktopApplication final : public QObject, public DesktopApplication {
  Q_OBJECT

 public:
  /// One at a time, after the QApplication and destroyed before it.
  QtDesktopApplication();

  /// The window that `widget`, a top-level widget with its title set, becomes; not on screen yet.
  DesktopWindow& addWindow(std::unique_ptr<QWidget> widget);
  /// Destroys every window with what it contains.
  void removeWindows() { windows_.clear(); }
  /// The widget of a window that `addWindow` returned.
  [[nodiscard]] static QWidget& widgetOf(DesktopWindow& window);
  /// Has a window that `addWindow` returned, and that has not been shown yet, appear as the user
  /// left it in an earlier run; see there.
  static void keepPlacement(DesktopWindow& window, const ChosenPlacement& chosen,
                            PlacementWatch::Keep keep) {
    static_cast<QtDesktopWindow&>(window).keepPlacement(chosen, std::move(keep));
  }

  /// What `terminate`, and a desktop that asks the application to quit, lead to; unless set, the
  /// event loop ends with 0.
  void setTerminationHandler(std::function<void()> handler);
  /// The permission to take the focus that came with a request; used by the next activation, once,
  /// and by none that comes later than half a minute after it.
  void setActivationToken(std::string token);
  [[nodiscard]] ActivationPolicy activationPolicy() const { return policy_; }

  [[nodiscard]] std::vector<DesktopWindow*> windows() const override;
  [[nodiscard]] std::optional<DesktopEvent> currentEvent() const override;
  /// Both policies are the same to a desktop that lists windows and not applications: hidden
  /// windows are in no task bar and no switcher.
  void setActivationPolicy(ActivationPolicy policy) override { policy_ = policy; }
  /// Applications as a whole are never hidden here.
  void unhide() override {}
  void activateIgnoringOtherApps() override;
  void terminate() override;
  [[nodiscard]] Registration addKeyDownMonitor(KeyMonitor monitor) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] DesktopWindow* keyWindow() const;
  [[nodiscard]] bool handleWindowKey(const DesktopEvent& event);

  std::vector<std::unique_ptr<QtDesktopWindow>> windows_;
  KeyDispatch keys_;
  QPointer<QtDesktopWindow> frontWindow_;
  [[nodiscard]] std::string takeActivationToken();

  std::string activationToken_;
  QDeadlineTimer tokenExpires_;
  ActivationPolicy policy_ = ActivationPolicy::regular;
  std::function<void()> onTerminate_;
};
}  // namespace orvane
