#include "platform/desktop/status/xembed/docked_presenter.h"

#include <chrono>
#include <utility>

namespace orvane {
namespace {

using namespace std::chrono_literals;

constexpr auto dockingPatience = 3s;

}  // namespace

DockedPresenter::DockedPresenter(DockedWindow::Shape shape, TrayManager& manager,
                                 Executor& executor, StatusRequests requests,
                                 std::function<void()> failed)
    : shape_(shape),
      manager_(manager),
      executor_(executor),
      requests_(std::move(requests)),
      failed_(std::move(failed)),
      popup_(executor) {
  managerObserver_ = manager_.observe([this] { dock(); });
}

void DockedPresenter::show(const StatusContent& content) {
  if (content_ == content) return;
  content_ = content;
  if (window_) {
    window_->show(content);
  } else {
    dock();
  }
}

void DockedPresenter::dock() {
  // A tray that goes leaves its windows to the screen, or takes them with it.
  window_.reset();
  check_.reset();
  if (!content_ || manager_.window() == XCB_WINDOW_NONE) return;
  window_ = std::make_unique<DockedWindow>(
      DockedWindow::Look{
          .shape = shape_, .alpha = manager_.wantsAlpha(), .foreground = manager_.foreground()},
      requests_.click, [this](QPoint position) {
        if (const auto menu = requests_.menu()) popup_.popUp(*menu, position);
      });
  window_->show(*content_);
  manager_.requestDock(static_cast<xcb_window_t>(window_->winId()));
  check_.emplace(executor_, dockingPatience, [this] { checkDocked(); });
}

void DockedPresenter::checkDocked() {
  if (!manager_.hasTaken(static_cast<xcb_window_t>(window_->winId()))) failed_();
}

}  // namespace orvane
