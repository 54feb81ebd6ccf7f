#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QEventLoop>
#include <QGuiApplication>
#include "fuzzer.h"
#include "platform/bus/session_bus.h"
#include "platform/eventloop/qt_executor.h"

namespace orvane {
/// What a fuzzer of the session bus needs, once a process: Qt's event loop, the program's own
/// connection, and another one that speaks to it. Runs on the bus that the program was started
/// with.
class BusSession {
 public:
  QtExecutor& executor() { return executor_; }
  SessionBus& bus() { return bus_; }
  QDBusConnection& stranger() { return stranger_; }

  /// Lets the event loop run until `condition` holds, which it does within ten seconds.
  template <class Condition>
  void letPassUntil(Condition condition) {
    const Instant end = executor_.now() + std::chrono::seconds(10);
    while (!condition()) {
      require(executor_.now() < end);
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
  }

 private:
  int argc_ = 3;
  char name_[5] = "fuzz";
  char option_[10] = "-platform";
  char platform_[10] = "offscreen";
  char* argv_[4] = {name_, option_, platform_, nullptr};
  QGuiApplication application_{argc_, argv_};
  QtExecutor executor_;
  SessionBus bus_{executor_};
  QDBusConnection stranger_ =
      QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("stranger"));
};
}  // namespace orvane
