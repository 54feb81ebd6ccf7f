#include "platform/desktop/qt/qt_desktop_window.h"
#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QWindow>
#include <charconv>
#include <string_view>
#include "platform/x11/x11_display.h"

namespace orvane {
namespace {
/// "A direct act of the user": window managers follow it where they would refuse a window that
/// raises itself.
constexpr std::uint32_t actOfTheUser = 2;

/// For a moment after a window is hidden Qt still takes it for the one with the focus, and then
/// overlooks that the focus comes back to it.
void noticeReturningFocus(QWidget& window) {
  if (QGuiApplication::focusWindow() != window.windowHandle() || window.isActiveWindow()) {
    return;
  }
  QT_WARNING_PUSH
  QT_WARNING_DISABLE_DEPRECATED
  QApplication::setActiveWindow(&window);
  QT_WARNING_POP
}

/// One of our windows has the keyboard. Qt goes on naming one that was hidden with it; that one has
/// no surface, or, shown again, one that has not appeared yet.
bool holdsKeyboard(const QWindow* window) { return window && window->isExposed(); }

/// For compositors that hand out permissions; Qt takes one from the environment. Without one it
/// asks the compositor itself in the name of the window that has the keyboard. For a program that
/// is not in front the answer would be "is ready".
void activateByPermission(QWidget& window, const std::string& token) {
  const QWindow* const holder = QGuiApplication::focusWindow();
  const bool canPassOn = holder != window.windowHandle() && holdsKeyboard(holder);
  if (!token.empty()) { qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token)); }
  if (!token.empty() || canPassOn) { window.activateWindow(); }
  qunsetenv("XDG_ACTIVATION_TOKEN");  // it was for this window
}
}  // namespace

QtDesktopWindow::QtDesktopWindow(std::unique_ptr<QWidget> widget,
                                 std::function<std::string(QtDesktopWindow&)> onOrderFront)
    : widget_(std::move(widget)), placement_(*widget_), onOrderFront_(std::move(onOrderFront)) {
  widget_->installEventFilter(this);
}

QtDesktopWindow::~QtDesktopWindow() {
  widget_->removeEventFilter(this);
  if (widget_->windowHandle()) { widget_->windowHandle()->removeEventFilter(this); }
}

void QtDesktopWindow::activate(const std::string& token) {
  widget_->raise();
  const auto display = X11Display::ofApplication();
  if (!display) {
    activateByPermission(*widget_, token);
    return;
  }
  if (!display->hasWindowManager()) { widget_->activateWindow(); }
  // Qt would give the time of the last event that it has seen, which may be none.
  const std::uint32_t givenTime = startupTime(token);
  const std::uint32_t time = givenTime != 0 ? givenTime : X11Display::currentTime();
  const auto id = static_cast<xcb_window_t>(widget_->winId());
  display->sendToWindowManager(id, "_NET_ACTIVE_WINDOW", {actOfTheUser, time});
  if (!token.empty()) { display->endStartupSequence(id, token); }
  display->flush();
}

std::string QtDesktopWindow::title() const { return widget_->windowTitle().toStdString(); }

bool QtDesktopWindow::isVisible() const { return widget_->isVisible() && !isMiniaturized(); }

bool QtDesktopWindow::isKeyWindow() const { return isVisible() && widget_->isActiveWindow(); }

void QtDesktopWindow::miniaturize() {
  if (!widget_->isVisible()) { takePlace(); }
  widget_->showMinimized();
}

void QtDesktopWindow::deminiaturize() {
  widget_->setWindowState(widget_->windowState() & ~Qt::WindowMinimized);
}

void QtDesktopWindow::orderOut() { widget_->hide(); }

void QtDesktopWindow::makeKeyAndOrderFront() {
  const std::string token = onOrderFront_(*this);
  if (token.empty() && canOnlyAppear()) { widget_->hide(); }
  if (isMiniaturized()) { deminiaturize(); }
  if (!widget_->isVisible()) { takePlace(); }
  widget_->show();
  if (focusWhenHidden_) { focusWhenHidden_->setFocus(); }
  focusWhenHidden_.clear();
  activate(token);
  noticeReturningFocus(*widget_);
}

void QtDesktopWindow::performClose() { widget_->close(); }

void QtDesktopWindow::setDelegate(std::weak_ptr<WindowDelegate> delegate) {
  delegate_ = std::move(delegate);
}

Registration QtDesktopWindow::observe(std::function<void(const WindowNotification&)> listener) {
  return notifications_.subscribe(std::move(listener));
}

bool QtDesktopWindow::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Expose:
      // Framed and placed by now; what Qt makes of this event itself comes first.
      if (isPlaced(*widget_) && std::exchange(isAppearing_, false)) {
        QMetaObject::invokeMethod(this, &QtDesktopWindow::comeOntoScreen, Qt::QueuedConnection);
      }
      return false;
    case QEvent::Close:
      if (mayClose()) { break; }
      event->ignore();
      return true;
    case QEvent::Hide:
      if (!event->spontaneous()) { remember(); }
      break;
    case QEvent::WindowActivate:
      notifications_.send(WindowNotification::didBecomeKey);
      break;
    case QEvent::WindowStateChange:
      handleStateChange();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

/// It is up without the keyboard, where programs raise no windows; one that appears comes to the
/// front there.
bool QtDesktopWindow::canOnlyAppear() const {
  return !X11Display::ofApplication() && isVisible() && !isAppearing_ &&
         !holdsKeyboard(QGuiApplication::focusWindow());
}

/// Before the window appears.
void QtDesktopWindow::takePlace() {
  widget_->winId();  // makes the window that is listened to
  widget_->windowHandle()->installEventFilter(this);
  isAppearing_ = true;
  placement_.programActs();
  if (fillsScreen(*widget_)) { return; }
  if (placeWhenHidden_) {
    standAt(placeToReturnTo(roomOf(*widget_), *placeWhenHidden_));
    return;
  }
  const ChosenPlacement& chosen = placement_.chosen();
  const QSize size = chosenSize(chosen, widget_->size(), widget_->minimumSize());
  if (chosen.centre && canPlaceWindows()) {
    standAt(placeAbout(*chosen.centre, size, *widget_));
  } else {
    widget_->resize(
        placeWithin(roomOf(*widget_), QRect(widget_->geometry().topLeft(), size)).size());
  }
}

void QtDesktopWindow::standAt(const QRect& place) {
  widget_->setGeometry(place);
  // A window manager places a window anew each time it appears unless it asks for its place, and
  // Qt asks only for a place that its window was told itself.
  widget_->windowHandle()->setGeometry(place);
}

/// Once the window has appeared.
void QtDesktopWindow::comeOntoScreen() {
  placement_.programActs();
  const bool isWhereTheUserLeftIt =
      placeWhenHidden_ && placeWhenHidden_->place.size() == widget_->size();
  if (!isPlaced(*widget_) || fillsScreen(*widget_) || isWhereTheUserLeftIt) { return; }
  const QRect place = placeWithin(roomOf(*widget_), widget_->geometry());
  if (place != widget_->geometry()) { widget_->setGeometry(place); }
}

void QtDesktopWindow::remember() {
  placeWhenHidden_ = {.place = widget_->geometry(),
                      .workArea = widget_->screen()->availableGeometry()};
  focusWhenHidden_ = widget_->focusWidget();
}

bool QtDesktopWindow::mayClose() {
  const auto delegate = delegate_.lock();
  if (delegate && !delegate->windowShouldClose(*this)) { return false; }
  notifications_.send(WindowNotification::willClose);
  return true;
}

void QtDesktopWindow::handleStateChange() {
  const bool miniaturized = isMiniaturized();
  if (std::exchange(wasMiniaturized_, miniaturized) == miniaturized) { return; }
  const auto delegate = delegate_.lock();
  if (miniaturized) {
    if (delegate) { delegate->windowDidMiniaturize(*this); }
    notifications_.send(WindowNotification::didMiniaturize);
  } else {
    if (delegate) { delegate->windowDidDeminiaturize(*this); }
    notifications_.send(WindowNotification::didDeminiaturize);
  }
}

unsigned startupTime(const std::string& token) {
  constexpr std::string_view mark = "_TIME";
  const auto found = token.rfind(mark);
  unsigned time = 0;
  if (found == std::string::npos) { return time; }
  std::from_chars(token.data() + found + mark.size(), token.data() + token.size(), time);
  return time;
}
}  // namespace orvane
