#pragma once

#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>
#include "platform/desktop/qt/qt_desktop_application.h"
#include "platform/x11/x11_display.h"

namespace orvane::test {
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
  DesktopTest() {
    const auto mark = folder.filePath("ready");
    windowManager.start("openbox", {"--sm-disable", "--startup", "touch " + mark});
    EXPECT_TRUE(QTest::qWaitFor([&mark] { return QFile::exists(mark); })) << "no openbox";
  }
  ~DesktopTest() override {
    windowManager.terminate();
    windowManager.waitForFinished();
  }

  void bringUp() {
    window.makeKeyAndOrderFront();
    application.activateIgnoringOtherApps();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
  }
  static std::unique_ptr<QWidget> content() {
    auto content = std::make_unique<QWidget>();
    (new QVBoxLayout(content.get()))->addWidget(new QLineEdit);
    return content;
  }

  QTemporaryDir folder;
  QProcess windowManager;
  QtDesktopApplication application;
  DesktopWindow& window = application.addWindow(content());
  QWidget& widget = QtDesktopApplication::widgetOf(window);
  QLineEdit& field = *widget.findChild<QLineEdit*>();
  std::shared_ptr<RecordingDelegate> delegate = std::make_shared<RecordingDelegate>(application);
};
}  // namespace orvane::test
