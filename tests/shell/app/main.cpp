#include <QApplication>
#include <QTemporaryFile>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
  // Real windows without a display; what needs one is tested elsewhere.
  QTemporaryFile screens;
  screens.open();
  screens.write(R"({"screens": [{"name": "one", "x": 0, "y": 0, "width": 1920, "height": 1200,
                                 "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
  screens.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
  const QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
