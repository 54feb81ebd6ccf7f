#pragma once

#include <QApplication>
#include <QProcess>
#include <QTest>
#include <optional>
#include <gtest/gtest.h>

namespace orvane::test {
/// An application object for the whole run, as in the program, and, from before it on, a session
/// bus of the test's own that can be taken away. The bus's address stays the same.
class DesktopSession final : public ::testing::Environment {
 public:
  void SetUp() override {
    qputenv("DBUS_SESSION_BUS_ADDRESS", address_.toUtf8());
    startBus();
    application_.emplace(argc_, argv_);
    QApplication::setQuitOnLastWindowClosed(false);
  }
  void TearDown() override {
    application_.reset();
    stopBus();
  }
  void startBus() {
    daemon_.emplace();
    daemon_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    daemon_->start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address",
                                   "--address=" + address_});
    ASSERT_TRUE(daemon_->waitForReadyRead(5000)) << "no session bus";
  }
  void stopBus() {
    daemon_->terminate();
    daemon_->waitForFinished(5000);
    daemon_.reset();
  }

 private:
  const QString address_ = "unix:path=" + qEnvironmentVariable("XDG_RUNTIME_DIR") + "/a-bus";
  int argc_ = 1;
  char name_[5] = "test";
  char* argv_[2] = {name_, nullptr};
  std::optional<QApplication> application_;
  std::optional<QProcess> daemon_;
};

/// That of this process.
inline auto* const desktopSession = static_cast<DesktopSession*>(
    ::testing::AddGlobalTestEnvironment(new DesktopSession));  // the test program owns it
}  // namespace orvane::test
