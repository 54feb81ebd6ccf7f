#include <QApplication>
#include <string_view>
#include <gtest/gtest.h>
#include "platform/desktop/qt/session_instance.h"
#include "platform/eventloop/qt_executor.h"

/// Started as "test --claim ID", this is another start of the application: it ends with its role.
int main(int argc, char** argv) {
  if (argc == 3 && argv[1] == std::string_view("--claim")) {
    const QString activationToken = orvane::activationTokenOfStart();
    const QApplication application(argc, argv);
    orvane::QtExecutor executor;
    orvane::SessionBus bus(executor);
    orvane::SessionInstance instance(bus, argv[2], std::chrono::milliseconds(300));
    return static_cast<int>(instance.claim(activationToken));
  }
  const QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
