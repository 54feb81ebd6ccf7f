#include "platform/tray/desktop_status_item.h"

#include <QCursor>
#include <chrono>
#include <utility>

#include "platform/desktop/symbols.h"
#include "platform/tray/drawing/status_drawing.h"
#include "platform/tray/notifier/notifier_presenter.h"
#include "platform/tray/xembed/docked_presenter.h"

namespace orvane {

namespace {

using namespace std::chrono_literals;

/// A panel that starts brings its services one after the other.
constexpr auto settlingTime = 300ms;

}  // namespace

DesktopStatusItem::DesktopStatusItem(Executor& executor, std::vector<std::string> desktopNames,
                                     ActivationToken activationToken)
    : executor_(executor),
      activationToken_(std::move(activationToken)),
      surroundings_(executor, std::move(desktopNames)),
      popup_(executor) {
  surroundingsObserver_ = surroundings_.observe([this] { handleSurroundings(); });
  showSoon();
}

void DesktopStatusItem::setImage(const std::optional<StatusImage>& image) {
  content_.image = image;
  showSoon();
}

void DesktopStatusItem::setToolTip(const std::string& text) {
  content_.toolTip = text;
  showSoon();
}

/// Image and tool tip change together as a rule: one turn of the event loop shows both.
void DesktopStatusItem::showSoon() {
  if (!showing_) {
    showing_.emplace(executor_, 0ms, [this] {
      showing_.reset();
      if (presenter_) {
        presenter_->show(content_);
      } else {
        present();
      }
    });
  }
}

void DesktopStatusItem::handleSurroundings() {
  if (presenter_) {
    settling_.emplace(executor_, settlingTime, [this] { present(); });
  } else {
    showSoon();
  }
}

void DesktopStatusItem::present() {
  if (!surroundings_.isKnown()) { return; }
  const auto wanted = choosePresentation(surroundings_.facts());
  if (!presenter_ || wanted != presentation_) {
    presenter_.reset();  // before its successor takes the same name on the bus
    presenter_ = makePresenter(wanted);
    presentation_ = wanted;
  }
  content_.shade = surroundings_.shade();
  presenter_->show(content_);
}

std::unique_ptr<StatusPresenter> DesktopStatusItem::makePresenter(Presentation presentation) {
  if (isDocked(presentation)) {
    const auto shape = presentation == Presentation::dockedWide ? DockedWindow::Shape::wide
                                                                : DockedWindow::Shape::square;
    return std::make_unique<DockedPresenter>(shape, surroundings_.manager(), executor_, requests(),
                                             [this] { surroundings_.dockingFailed(); });
  }
  return std::make_unique<NotifierPresenter>(presentation, surroundings_.bus(), executor_,
                                             requests());
}

StatusRequests DesktopStatusItem::requests() {
  return {.click = [this] { click(); },
          .menu = [this] { return takeMenu(); },
          .activationToken =
              [this](const std::string& token) {
                if (activationToken_) { activationToken_(token); }
              }};
}

void DesktopStatusItem::click() {
  const auto action = action_;
  if (action) { action(DesktopEvent{.type = DesktopEvent::Type::leftMouseUp}); }
}

std::optional<Menu> DesktopStatusItem::takeMenu() {
  const auto action = action_;
  if (!action) { return std::nullopt; }
  takenMenu_.reset();
  takingMenu_ = true;
  action(DesktopEvent{.type = DesktopEvent::Type::rightMouseUp});
  takingMenu_ = false;
  return std::exchange(takenMenu_, std::nullopt);
}

void DesktopStatusItem::performClick() {
  if (takingMenu_) {
    takenMenu_ = menu_;
  } else if (menu_) {
    popup_.popUp(*menu_, QCursor::pos());
  }
}

DesktopStatusBar::DesktopStatusBar(Executor& executor,
                                   std::function<void(const std::string& token)> activationToken)
    : executor_(executor),
      activationToken_(std::move(activationToken)),
      desktopNames_(
          orvane::desktopNames(qEnvironmentVariable("XDG_CURRENT_DESKTOP").toStdString())) {}

std::unique_ptr<StatusItem> DesktopStatusBar::createItem(double /*length*/) {
  return std::make_unique<DesktopStatusItem>(executor_, desktopNames_, activationToken_);
}

std::optional<PointSize> DesktopStatusBar::symbolSize(const std::string& name,
                                                      double pointSize) const {
  if (!hasSymbol(QString::fromStdString(name))) { return std::nullopt; }
  return symbolMeasure(QString::fromStdString(name), pointSize);
}

PointSize DesktopStatusBar::textSize(const std::string& text, double pointSize) const {
  const auto size = TabularText(pointSize).size(QString::fromStdString(text));
  return {.width = size.width(), .height = size.height()};
}

}  // namespace orvane
