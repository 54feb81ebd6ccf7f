#pragma once

#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/desktop/qt/qt_desktop_application.h"
#include "platform/x11/x11_display.h"

namespace orvane::test {

/// A real window manager on the test's display, for as long as this object lives.
class WindowManager {
 public:
  WindowManager() {
    const auto mark = folder_.filePath(QStringLiteral("ready"));
    process_.start(QStringLiteral("openbox"),
                   {QStringLiteral("--sm-disable"), QStringLiteral("--startup"),
                    QStringLiteral("touch ") + mark});
    EXPECT_TRUE(QTest::qWaitFor([&mark] { return QFile::exists(mark); })) << "no openbox";
  }
  WindowManager(const WindowManager&) = delete;
  WindowManager& operator=(const WindowManager&) = delete;
  ~WindowManager() {
    process_.terminate();
    process_.waitForFinished();
  }

 private:
  QTemporaryDir folder_;
  QProcess process_;
};

/// What somebody at the display does: "key ctrl+w", "windowminimize 4711".
inline void xdotool(const QStringList& arguments) {
  EXPECT_EQ(QProcess::execute(QStringLiteral("xdotool"), arguments), 0);
}

inline QString windowId(const QWidget& widget) { return QString::number(widget.winId()); }

/// Presses the close control in the window's frame.
inline void closeByWindowManager(const QWidget& widget) {
  const auto display = X11Display::ofApplication();
  display->sendToWindowManager(static_cast<xcb_window_t>(widget.winId()), "_NET_CLOSE_WINDOW", {});
  display->flush();
}

/// Answers as it is told and remembers what it was asked and told.
class RecordingDelegate final : public WindowDelegate {
 public:
  explicit RecordingDelegate(const DesktopApplication& application) : application_(application) {}

  bool windowShouldClose(DesktopWindow& /*window*/) override {
    heard.emplace_back("should close");
    eventWhenAsked = application_.currentEvent();
    return closes;
  }
  void windowDidMiniaturize(DesktopWindow& /*window*/) override { heard.emplace_back("minimised"); }
  void windowDidDeminiaturize(DesktopWindow& /*window*/) override {
    heard.emplace_back("restored");
  }

  bool closes = false;
  std::vector<std::string> heard;
  std::optional<DesktopEvent> eventWhenAsked;

 private:
  const DesktopApplication& application_;
};

/// An application under a real window manager with one window, which holds a text field.
class DesktopTest : public testing::Test {
 protected:
  static std::unique_ptr<QWidget> titled(const char* title) {
    auto widget = std::make_unique<QWidget>();
    widget->setWindowTitle(QString::fromLatin1(title));
    widget->resize(300, 200);
    (new QVBoxLayout(widget.get()))->addWidget(new QLineEdit);
    return widget;
  }

  void bringUp() {
    window.makeKeyAndOrderFront();
    application.activateIgnoringOtherApps();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
  }

  WindowManager windowManager;
  QtDesktopApplication application;
  DesktopWindow& window = application.addWindow(titled("Orvane"));
  QWidget& widget = QtDesktopApplication::widgetOf(window);
  QLineEdit& field = *widget.findChild<QLineEdit*>();
  std::shared_ptr<RecordingDelegate> delegate = std::make_shared<RecordingDelegate>(application);
};

}  // namespace orvane::test
