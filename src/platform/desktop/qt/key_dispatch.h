#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <utility>

#include "platform/desktop/desktop_application.h"

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
};

}  // namespace orvane
