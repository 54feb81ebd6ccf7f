#pragma once

#include <QLineEdit>
#include <QVBoxLayout>

#include "platform/desktop/qt/qt_desktop_application.h"
#include "platform/desktop/recording_delegate.h"
#include "platform/desktop/window_manager.h"

namespace orvane::test {

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
