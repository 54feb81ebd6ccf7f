#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop/desktop_application.h"
#include "platform/desktop/desktop_window.h"
#include "platform/desktop/signal.h"
#include "platform/desktop/status_item.h"

namespace orvane::test {

/// What was asked of the desktop, in order: "Orvane: order out", "policy accessory".
using CallLog = std::vector<std::string>;

/// A window without a screen: it keeps the state that a real one would have.
class FakeWindow final : public DesktopWindow {
 public:
  FakeWindow(std::string title, CallLog& log, int level = normalLevel)
      : title_(std::move(title)), level_(level), log_(log) {}

  [[nodiscard]] std::string title() const override { return title_; }
  [[nodiscard]] int level() const override { return level_; }
  [[nodiscard]] bool isMiniaturized() const override { return miniaturized_; }
  [[nodiscard]] bool isVisible() const override { return visible_ && !miniaturized_; }
  [[nodiscard]] bool isKeyWindow() const override { return key_; }

  void miniaturize() override;
  void deminiaturize() override;
  void orderOut() override;
  void makeKeyAndOrderFront() override;
  void performClose() override;
  void setDelegate(std::weak_ptr<WindowDelegate> delegate) override;
  [[nodiscard]] Registration observe(
      std::function<void(const WindowNotification&)> listener) override;

  void resignKey() { key_ = false; }
  [[nodiscard]] std::shared_ptr<WindowDelegate> delegate() const { return delegate_.lock(); }

 private:
  void record(const char* call) { log_.push_back(title_ + ": " + call); }

  std::string title_;
  int level_;
  CallLog& log_;
  bool miniaturized_ = false;
  bool visible_ = false;
  bool key_ = false;
  std::weak_ptr<WindowDelegate> delegate_;
  Signal<WindowNotification> notifications_;
};

/// An application whose windows, keys and clicks come from the test.
class FakeApplication final : public DesktopApplication {
 public:
  explicit FakeApplication(CallLog& log) : log_(log) {}

  [[nodiscard]] std::vector<DesktopWindow*> windows() const override;
  [[nodiscard]] std::optional<DesktopEvent> currentEvent() const override { return event_; }
  void setActivationPolicy(ActivationPolicy policy) override;
  void unhide() override { log_.emplace_back("unhide"); }
  void activateIgnoringOtherApps() override { log_.emplace_back("activate"); }
  void terminate() override { log_.emplace_back("terminate"); }
  [[nodiscard]] Registration addKeyDownMonitor(KeyMonitor monitor) override;

  FakeWindow& addWindow(std::string title, int level = DesktopWindow::normalLevel);
  void setCurrentEvent(std::optional<DesktopEvent> event) { event_ = std::move(event); }
  /// Presses a key: monitors see it in order; true when one of them swallowed it.
  bool press(const DesktopEvent& event);
  [[nodiscard]] std::size_t installedMonitors() const;

 private:
  CallLog& log_;
  std::vector<std::unique_ptr<FakeWindow>> windows_;
  std::vector<std::weak_ptr<const KeyMonitor>> monitors_;
  std::optional<DesktopEvent> event_;
};

/// What a status item shows now, and how often it was drawn.
struct FakeStatusItemState {
  bool exists = false;
  double length = 0;
  std::optional<StatusImage> image;
  std::string toolTip;
  std::optional<Menu> menu;
  std::optional<Menu> poppedUp;  ///< the menu that the last click showed
  int draws = 0;
  StatusItem::Action action;
};

/// A status area in which each character is 6.25 points wide.
class FakeStatusBar final : public StatusBar {
 public:
  [[nodiscard]] std::unique_ptr<StatusItem> createItem(double length) override;
  [[nodiscard]] std::optional<PointSize> symbolSize(const std::string& name,
                                                    double pointSize) const override;
  [[nodiscard]] PointSize textSize(const std::string& text, double pointSize) const override;

  FakeStatusItemState item;
  std::vector<std::string> symbols{"chart.line.uptrend.xyaxis", "chart.bar"};
  PointSize symbolMeasure{.width = 17, .height = 14};
  double textHeight = 11;
  bool givesItems = true;
  int created = 0;
};

}  // namespace orvane::test
