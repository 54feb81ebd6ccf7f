#include "status_item_fixture.h"

#include <QApplication>
#include <QProcess>

namespace orvane::test {
namespace {

QString busAddress() {
  return QStringLiteral("--address=unix:path=%1/test-bus")
      .arg(qEnvironmentVariable("XDG_RUNTIME_DIR"));
}

std::optional<QProcess> bus;

/// The application object lives for the whole run, as in the program.
class DesktopSession final : public ::testing::Environment {
 public:
  void SetUp() override {
    qputenv("DBUS_SESSION_BUS_ADDRESS", busAddress().section(u'=', 1).toUtf8());
    startBus();
    application_.emplace(argc_, argv_);
    QApplication::setQuitOnLastWindowClosed(false);
  }
  void TearDown() override {
    application_.reset();
    stopBus();
  }

 private:
  int argc_ = 1;
  char name_[5] = "test";
  char* argv_[2] = {name_, nullptr};
  std::optional<QApplication> application_;
};

const auto* const session = ::testing::AddGlobalTestEnvironment(new DesktopSession);

}  // namespace

void startBus() {
  bus.emplace().start("dbus-daemon", {"--session", "--nofork", "--print-address", busAddress()});
  ASSERT_TRUE(bus->waitForReadyRead(5000)) << "no session bus";
}

void stopBus() {
  bus->terminate();
  bus->waitForFinished(5000);
}

bool hasColor(const QImage& picture, const QColor& color) {
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixelColor(x, y) == color) { return true; }
    }
  }
  return false;
}

}  // namespace orvane::test
