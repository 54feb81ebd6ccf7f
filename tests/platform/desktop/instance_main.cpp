#include <QCoreApplication>

#include <gtest/gtest.h>

#include "platform/desktop/qt/session_instance.h"

/// Started as "test --claim ID", this is another start of the application: it ends with its role.
int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const auto arguments = QCoreApplication::arguments();
  if (arguments.value(1) == QStringLiteral("--claim")) {
    using namespace std::chrono_literals;
    return static_cast<int>(orvane::SessionInstance(arguments.value(2), 300ms).claim());
  }
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
