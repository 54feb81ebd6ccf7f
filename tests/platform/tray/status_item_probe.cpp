/// Puts a status item with a sample figure into whatever tray there is and writes what the user
/// does to it, one event a line: "clicked", "menu", "chosen Open Orvane".

#include <QApplication>
#include <fmt/format.h>
#include "platform/eventloop/qt_executor.h"
#include "platform/tray/desktop_status_bar.h"
#include "sample_status.h"

int main(int argc, char** argv) {
  using namespace orvane;
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QtExecutor executor;
  DesktopStatusBar bar(executor);
  const auto item = bar.createItem(StatusItem::squareLength);
  const auto say = [](const std::string& event) {
    fmt::print("{}\n", event);
    std::fflush(stdout);
  };
  const std::string text = argc > 1 ? argv[1] : "12,345 sats";
  test::useItem(
      *item, bar, text, [&] { say("clicked"); },
      [&] {
        say("menu");
        return test::sampleMenu(text, [&](const std::string& title) { say("chosen " + title); });
      });
  return QApplication::exec();
}
