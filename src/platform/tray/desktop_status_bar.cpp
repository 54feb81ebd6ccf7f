#include "platform/tray/desktop_status_bar.h"
#include <QAction>
#include <QCursor>
#include <QGuiApplication>
#include <QKeySequence>
#include <QMenu>
#include <QPoint>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <utility>
#include "platform/async/timer.h"
#include "platform/color/contrast.h"
#include "platform/desktop/qt/window_placement.h"
#include "platform/desktop/symbols.h"
#include "platform/text/unicode.h"
#include "platform/tray/notifier/notifier_presenter.h"
#include "platform/tray/presentation.h"
#include "platform/tray/tray_surroundings.h"
#include "platform/tray/xembed/docked_presenter.h"

namespace orvane {
namespace {
using namespace std::chrono_literals;

/// A panel that starts brings its services one after the other.
constexpr auto settlingTime = 300ms;

/// The menu as a window of our own, for where no host shows it. An action runs after it has closed.
std::unique_ptr<QMenu> menuWindow(const Menu& menu, Executor& executor) {
  auto window = std::make_unique<QMenu>();
  window->setPalette(withReadableDisabledText(window->palette()));  // they hold the figures
  for (const auto& item : menu.items) {
    if (item.isSeparator()) {
      window->addSeparator();
      continue;
    }
    auto title = QString::fromStdString(numbersIsolated(item.title));
    auto* const row = window->addAction(title.replace(u'&', QStringLiteral("&&")));
    row->setEnabled(item.enabled);
    if (!item.keyEquivalent.empty()) {
      const auto key = QString::fromStdString(item.keyEquivalent).toUpper();
      row->setShortcut(QKeySequence(QStringLiteral("Ctrl+") + key));
      row->setShortcutVisibleInContextMenu(true);
    }
    QObject::connect(row, &QAction::triggered, window.get(), [&executor, action = item.action] {
      if (action) { executor.post(action); }
    });
  }
  return window;
}

/// A compositor that places all windows itself takes a menu only as part of a window of the same
/// program, and closes it at once unless that has the keyboard. Alone it would be a window with a
/// frame, somewhere.
bool canPopUp() {
  const QWindow* const window = QGuiApplication::focusWindow();
  return canPlaceWindows() || (window && window->isExposed());
}

/// Makes `menu` part of the window that has the keyboard. Gives the place of that window which is
/// next to `position`; the compositor goes on from there.
QPoint hangOnFocusWindow(QMenu& menu, const QPoint& position) {
  QWindow* const window = QGuiApplication::focusWindow();
  menu.winId();  // makes the window that is told
  menu.windowHandle()->setTransientParent(window);
  const QRect room = window ? window->geometry() : QRect(position, QSize(1, 1));
  return {std::clamp(position.x(), room.left(), room.right()),
          std::clamp(position.y(), room.top(), room.bottom())};
}

/// The status item on the Linux desktop. It holds what is to be shown; a presenter brings that to
/// the tray. Which presenter depends on the surroundings: nothing is shown before they are known,
/// and when they change (a panel starts, another tray takes over), the item waits until they have
/// settled and moves to another presenter if another presentation suits them then.
///
/// The menu exists only while the receiver of a right click lends it: it sets a menu, clicks and
/// takes the menu away again. A presenter that needs the menu has the item play that right click
/// and keep the menu that is clicked, instead of showing it.
class DesktopStatusItem final : public StatusItem {
 public:
  DesktopStatusItem(Executor& executor, std::vector<std::string> desktopNames,
                    DesktopStatusBar::ActivationToken activationToken)
      : executor_(executor),
        activationToken_(std::move(activationToken)),
        surroundings_(executor, std::move(desktopNames)) {
    surroundingsObserver_ = surroundings_.observe([this] { handleSurroundings(); });
    showSoon();
  }

  /// Each presentation takes the width that its image needs, so the length adds nothing.
  void setLength(double /*points*/) override {}

  void setImage(const std::optional<StatusImage>& image) override {
    content_.image = image;
    showSoon();
  }

  void setToolTip(const std::string& text) override {
    content_.toolTip = text;
    showSoon();
  }

  void setAction(Action action) override { action_ = std::move(action); }
  void setMenu(std::optional<Menu> menu) override { menu_ = std::move(menu); }
  void noticeMenu() override { showSoon(); }

  void performClick() override {
    if (takingMenu_) {
      takenMenu_ = menu_;
    } else if (menu_) {
      popUp(*menu_, QCursor::pos());
    }
  }

  [[nodiscard]] bool hasHost() const override {
    const auto facts = surroundings_.facts();
    return surroundings_.isKnown() &&
           (facts.notifierHost || (facts.trayManager && !facts.dockingFailed));
  }

 private:
  /// Image and tool tip change together as a rule: one turn of the event loop shows both.
  void showSoon() {
    if (showing_) { return; }
    showing_.emplace(executor_, 0ms, [this] {
      showing_.reset();
      if (presenter_) {
        presenter_->show(content_);
      } else {
        present();
      }
    });
  }

  void handleSurroundings() {
    if (presenter_) {
      settling_.emplace(executor_, settlingTime, [this] { present(); });
    } else {
      showSoon();
    }
  }

  void present() {
    if (!surroundings_.isKnown()) { return; }
    const auto wanted = choosePresentation(surroundings_.facts());
    if (!presenter_ || wanted != presentation_) {
      shownMenu_.reset();
      presenter_.reset();  // hosts drop the old item before they hear of the new one
      presenter_ = makePresenter(wanted);
      presentation_ = wanted;
    }
    content_.shade = surroundings_.shade();
    presenter_->show(content_);
  }

  [[nodiscard]] std::unique_ptr<StatusPresenter> makePresenter(Presentation presentation) {
    if (isDocked(presentation)) {
      return std::make_unique<DockedPresenter>(presentation, surroundings_.manager(), executor_,
                                               requests(),
                                               [this] { surroundings_.dockingFailed(); });
    }
    return std::make_unique<NotifierPresenter>(presentation, executor_, requests());
  }

  [[nodiscard]] StatusRequests requests() {
    return {.click = [this] { act(DesktopEvent::Type::leftMouseUp); },
            .menu = [this] { return takeMenu(); },
            .popUpMenu =
                [this](const QPoint& position) {
                  if (!canPopUp()) {
                    act(DesktopEvent::Type::leftMouseUp);  // the window has the same commands
                  } else if (const auto menu = takeMenu()) {
                    popUp(*menu, position);
                  }
                },
            .activationToken =
                [this](const std::string& token) {
                  if (activationToken_) { activationToken_(token); }
                }};
  }

  void act(DesktopEvent::Type type) {
    const auto action = action_;
    if (action) { action(DesktopEvent{.type = type}); }
  }

  [[nodiscard]] std::optional<Menu> takeMenu() {
    takenMenu_.reset();
    takingMenu_ = true;
    act(DesktopEvent::Type::rightMouseUp);
    takingMenu_ = false;
    return std::exchange(takenMenu_, std::nullopt);
  }

  /// In place of one that is still open.
  void popUp(const Menu& menu, QPoint position) {
    shownMenu_ = menuWindow(menu, executor_);
    if (!canPlaceWindows()) { position = hangOnFocusWindow(*shownMenu_, position); }
    shownMenu_->popup(position);
  }

  Executor& executor_;
  DesktopStatusBar::ActivationToken activationToken_;
  TraySurroundings surroundings_;
  StatusContent content_;
  Action action_;
  std::optional<Menu> menu_;
  bool takingMenu_ = false;
  std::optional<Menu> takenMenu_;
  std::unique_ptr<QMenu> shownMenu_;
  Presentation presentation_ = Presentation::square;
  std::unique_ptr<StatusPresenter> presenter_;
  std::optional<OneShotTimer> settling_;
  std::optional<OneShotTimer> showing_;
  Registration surroundingsObserver_;
};
}  // namespace

DesktopStatusBar::DesktopStatusBar(Executor& executor, ActivationToken activationToken)
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
  return symbolMeasure(name, pointSize);
}

PointSize DesktopStatusBar::textSize(const std::string& text, double pointSize) const {
  return textMeasure(text, pointSize);
}
}  // namespace orvane
