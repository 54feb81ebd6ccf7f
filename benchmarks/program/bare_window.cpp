// The least that a program with a window costs: the measure for what Orvane adds to it.

#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QLabel window(QStringLiteral("A window"));
  window.setWindowTitle(QStringLiteral("Bare"));
  window.resize(500, 900);
  window.show();
  return QApplication::exec();
}
