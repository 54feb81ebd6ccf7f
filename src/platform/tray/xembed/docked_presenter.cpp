#include "platform/tray/xembed/docked_presenter.h"

#include <chrono>
#include <utility>

namespace orvane {

namespace {

using namespace std::chrono_literals;

constexpr auto dockingPatience = 3s;

}  // namespace

DockedPresenter::DockedPresenter(Presentation presentation, TrayManager& manager,
                                 Executor& executor, StatusRequests requests,
                                 std::function<void()> failed)
    : shape_(presentation == Presentation::dockedWide ? DockedWindow::Shape::wide
                                                      : DockedWindow::Shape::square),
      manager_(manager),
      executor_(executor),
      requests_(std::move(requests)),
      failed_(std::move(failed)) {
  managerObserver_ = manager_.observe([this] { dock(); });
  takenObserver_ = manager_.observeTaken([this](xcb_window_t icon) {
    // Shown earlier, it would stand on the screen for a moment.
    if (window_ && icon == windowId()) { window_->show(); }
  });
}

void DockedPresenter::show(const StatusContent& content) {
  if (content_ == content) { return; }
  content_ = content;
  if (window_) {
    window_->setContent(content);
  } else {
    dock();
  }
}

void DockedPresenter::dock() {
  // A tray that goes leaves its windows to the screen, or takes them with it.
  window_.reset();
  check_.reset();
  if (!content_ || manager_.window() == XCB_WINDOW_NONE) { return; }
  window_ = std::make_unique<DockedWindow>(
      executor_,
      DockedWindow::Look{
          .shape = shape_, .alpha = manager_.wantsAlpha(), .foreground = manager_.foreground()},
      requests_);
  window_->setContent(*content_);
  manager_.requestDock(windowId());
  check_.emplace(executor_, dockingPatience, [this] {
    if (!manager_.hasTaken(windowId())) { failed_(); }
  });
}

xcb_window_t DockedPresenter::windowId() const {
  return static_cast<xcb_window_t>(window_->winId());
}

}  // namespace orvane
