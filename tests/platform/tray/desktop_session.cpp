#include "desktop_session.h"

#include <QApplication>
#include <memory>

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

QString busAddress() {
  return QStringLiteral("unix:path=%1/restartable-bus")
      .arg(qEnvironmentVariable("XDG_RUNTIME_DIR"));
}

/// The application object lives for the whole run, as in the program.
class DesktopSession final : public ::testing::Environment {
 public:
  void SetUp() override {
    qputenv("DBUS_SESSION_BUS_ADDRESS", busAddress().toUtf8());
    bus = std::make_unique<PrivateBus>();
    bus->start();
    application_ = std::make_unique<QApplication>(argc_, argv_);
    QApplication::setQuitOnLastWindowClosed(false);
  }
  void TearDown() override {
    application_.reset();
    bus.reset();
  }

  std::unique_ptr<PrivateBus> bus;

 private:
  int argc_ = 1;
  char name_[5] = "test";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

auto* const session = static_cast<DesktopSession*>(
    ::testing::AddGlobalTestEnvironment(new DesktopSession));  // the test program owns it

}  // namespace

void PrivateBus::start() {
  daemon_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  daemon_.start(
      QStringLiteral("dbus-daemon"),
      {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
       QStringLiteral("--print-address"), QStringLiteral("--address=") + busAddress()});
  ASSERT_TRUE(daemon_.waitForReadyRead(5000)) << "no session bus";
}

void PrivateBus::stop() {
  daemon_.terminate();
  daemon_.waitForFinished(5000);
}

PrivateBus& privateBus() { return *session->bus; }

}  // namespace orvane::test
