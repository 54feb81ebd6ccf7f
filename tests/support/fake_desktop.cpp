#include "support/fake_desktop.h"

#include <algorithm>
#include <utility>

namespace orvane::test {

void FakeWindow::miniaturize() {
  record("miniaturize");
  if (std::exchange(miniaturized_, true)) return;
  if (const auto delegate = delegate_.lock()) delegate->windowDidMiniaturize(*this);
  notifications_.send(WindowNotification::didMiniaturize);
}

void FakeWindow::deminiaturize() {
  record("deminiaturize");
  if (!std::exchange(miniaturized_, false)) return;
  if (const auto delegate = delegate_.lock()) delegate->windowDidDeminiaturize(*this);
  notifications_.send(WindowNotification::didDeminiaturize);
}

void FakeWindow::orderOut() {
  record("order out");
  visible_ = false;
  key_ = false;
}

void FakeWindow::makeKeyAndOrderFront() {
  record("order front");
  visible_ = true;
  key_ = true;
  notifications_.send(WindowNotification::didBecomeKey);
}

void FakeWindow::performClose() {
  record("close");
  const auto delegate = delegate_.lock();
  if (delegate && !delegate->windowShouldClose(*this)) return;
  notifications_.send(WindowNotification::willClose);
  visible_ = false;
  key_ = false;
}

void FakeWindow::setDelegate(std::weak_ptr<WindowDelegate> delegate) {
  delegate_ = std::move(delegate);
}

Registration FakeWindow::observe(std::function<void(const WindowNotification&)> listener) {
  return notifications_.subscribe(std::move(listener));
}

std::vector<DesktopWindow*> FakeApplication::windows() const {
  std::vector<DesktopWindow*> windows;
  for (const auto& window : windows_) {
    windows.push_back(window.get());
  }
  return windows;
}

void FakeApplication::setActivationPolicy(ActivationPolicy policy) {
  log_.emplace_back(policy == ActivationPolicy::regular ? "policy regular" : "policy accessory");
}

Registration FakeApplication::addKeyDownMonitor(KeyMonitor monitor) {
  auto shared = std::make_shared<const KeyMonitor>(std::move(monitor));
  monitors_.push_back(shared);
  return Registration(std::move(shared));
}

FakeWindow& FakeApplication::addWindow(std::string title, int level) {
  return *windows_.emplace_back(std::make_unique<FakeWindow>(std::move(title), log_, level));
}

bool FakeApplication::press(const DesktopEvent& event) {
  return std::ranges::any_of(monitors_, [&event](const auto& weak) {
    const auto monitor = weak.lock();
    return monitor && (*monitor)(event) == KeyDecision::swallow;
  });
}

std::size_t FakeApplication::installedMonitors() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(monitors_, [](const auto& monitor) { return !monitor.expired(); }));
}

namespace {

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
  void performClick() override { state_.poppedUp = state_.menu; }

 private:
  FakeStatusItemState& state_;
};

}  // namespace

std::unique_ptr<StatusItem> FakeStatusBar::createItem(double length) {
  if (!givesItems) return nullptr;
  ++created;
  return std::make_unique<FakeStatusItem>(item, length);
}

std::optional<PointSize> FakeStatusBar::symbolSize(const std::string& name,
                                                   double /*pointSize*/) const {
  if (std::ranges::find(symbols, name) == symbols.end()) return std::nullopt;
  return symbolMeasure;
}

PointSize FakeStatusBar::textSize(const std::string& text, double /*pointSize*/) const {
  return {.width = 6.25 * static_cast<double>(text.size()), .height = textHeight};
}

}  // namespace orvane::test
