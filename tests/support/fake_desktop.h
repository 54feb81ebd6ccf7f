#pragma once

#include <algorithm>
#include "platform/desktop/desktop_application.h"
#include "platform/tray/status_item.h"

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

  void miniaturize() override {
    record("miniaturize");
    if (std::exchange(miniaturized_, true)) { return; }
    if (const auto delegate = delegate_.lock()) { delegate->windowDidMiniaturize(*this); }
    notifications_.send(WindowNotification::didMiniaturize);
  }
  void deminiaturize() override {
    record("deminiaturize");
    if (!std::exchange(miniaturized_, false)) { return; }
    if (const auto delegate = delegate_.lock()) { delegate->windowDidDeminiaturize(*this); }
    notifications_.send(WindowNotification::didDeminiaturize);
  }
  void orderOut() override {
    record("order out");
    visible_ = key_ = false;
  }
  void makeKeyAndOrderFront() override {
    record("order front");
    visible_ = key_ = true;
    notifications_.send(WindowNotification::didBecomeKey);
  }
  void performClose() override {
    record("close");
    const auto delegate = delegate_.lock();
    if (delegate && !delegate->windowShouldClose(*this)) { return; }
    notifications_.send(WindowNotification::willClose);
    visible_ = key_ = false;
  }
  void setDelegate(std::weak_ptr<WindowDelegate> delegate) override {
    delegate_ = std::move(delegate);
  }
  [[nodiscard]] Registration observe(
      std::function<void(const WindowNotification&)> listener) override {
    return notifications_.subscribe(std::move(listener));
  }

  void resignKey() { key_ = false; }

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

  [[nodiscard]] std::vector<DesktopWindow*> windows() const override {
    std::vector<DesktopWindow*> windows;
    windows.reserve(windows_.size());
    for (const auto& window : windows_) {
      windows.push_back(window.get());
    }
    return windows;
  }
  [[nodiscard]] std::optional<DesktopEvent> currentEvent() const override { return event_; }
  void setActivationPolicy(ActivationPolicy policy) override {
    log_.emplace_back(policy == ActivationPolicy::regular ? "policy regular" : "policy accessory");
  }
  void unhide() override { log_.emplace_back("unhide"); }
  void activateIgnoringOtherApps() override { log_.emplace_back("activate"); }
  void terminate() override { log_.emplace_back("terminate"); }
  [[nodiscard]] Registration addKeyDownMonitor(KeyMonitor monitor) override {
    return monitors_.add(std::move(monitor));
  }

  FakeWindow& addWindow(std::string title, int level = DesktopWindow::normalLevel) {
    return *windows_.emplace_back(std::make_unique<FakeWindow>(std::move(title), log_, level));
  }
  void setCurrentEvent(std::optional<DesktopEvent> event) { event_ = std::move(event); }
  /// Presses a key: monitors see it in order; true when one of them swallowed it.
  bool press(const DesktopEvent& event) {
    return monitors_.untilTrue(
        [&event](const auto& monitor) { return monitor(event) == KeyDecision::swallow; });
  }

 private:
  CallLog& log_;
  std::vector<std::unique_ptr<FakeWindow>> windows_;
  Listeners<KeyMonitor> monitors_;
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
  int menuNotices = 0;
  StatusItem::Action action;
  bool hasHost = true;
};

class FakeStatusItem final : public StatusItem {
 public:
  FakeStatusItem(FakeStatusItemState& state, double length) : state_(state) {
    state_.exists = true;
    state_.length = length;
  }
  FakeStatusItem(const FakeStatusItem&) = delete;
  FakeStatusItem& operator=(const FakeStatusItem&) = delete;
  ~FakeStatusItem() override { state_.exists = false; }

  void setLength(double points) override { state_.length = points; }
  void setImage(const std::optional<StatusImage>& image) override {
    state_.image = image;
    ++state_.draws;
  }
  void setToolTip(const std::string& text) override { state_.toolTip = text; }
  void setAction(Action action) override { state_.action = std::move(action); }
  void setMenu(std::optional<Menu> menu) override { state_.menu = std::move(menu); }
  void noticeMenu() override { ++state_.menuNotices; }
  void performClick() override { state_.poppedUp = state_.menu; }
  [[nodiscard]] bool hasHost() const override { return state_.hasHost; }

 private:
  FakeStatusItemState& state_;
};

/// A status area in which each character is 6.25 points wide.
class FakeStatusBar final : public StatusBar {
 public:
  [[nodiscard]] std::unique_ptr<StatusItem> createItem(double length) override {
    ++created;
    return std::make_unique<FakeStatusItem>(item, length);
  }
  [[nodiscard]] std::optional<PointSize> symbolSize(const std::string& name,
                                                    double /*pointSize*/) const override {
    const bool isKnown = std::ranges::find(symbols, name) != symbols.end();
    return isKnown ? std::optional(symbolMeasure) : std::nullopt;
  }
  [[nodiscard]] PointSize textSize(const std::string& text, double /*pointSize*/) const override {
    return {.width = 6.25 * static_cast<double>(text.size()), .height = textHeight};
  }

  FakeStatusItemState item;
  std::vector<std::string> symbols{"chart.line.uptrend.xyaxis", "chart.bar"};
  PointSize symbolMeasure{.width = 17, .height = 14};
  double textHeight = 11;
  int created = 0;
};
}  // namespace orvane::test
