#pragma once

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

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

}  // namespace orvane::test
