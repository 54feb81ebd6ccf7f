#include <QApplication>
#include <string_view>
#include <gtest/gtest.h>
#include "platform/desktop/qt/session_instance.h"

/// Started as "test --claim ID", this is another start of the application: it ends with its role.
/// It has no windows, since Qt for X11 takes DESKTOP_STARTUP_ID out of the environment.
int main(int argc, char** argv) {
  if (argc == 3 && argv[1] == std::string_view("--claim")) {
    const QCoreApplication application(argc, argv);
    return static_cast<int>(
        orvane::SessionInstance(argv[2], std::chrono::milliseconds(300)).claim());
  }
  const QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
