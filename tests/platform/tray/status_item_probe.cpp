/// Puts a status item with a sample figure into whatever tray there is and writes what the user
/// does to it, one event a line: "clicked", "menu", "chosen Open Orvane".

#include <QApplication>
#include <cstdio>
#include <string>

#include <fmt/format.h>

#include "platform/eventloop/qt_executor.h"
#include "platform/tray/desktop_status_bar.h"
#include "sample_status.h"

namespace {

void say(const std::string& line) {
  fmt::print("{}\n", line);
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace orvane;
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QtExecutor executor;
  DesktopStatusBar bar(executor);
  const std::string text = argc > 1 ? argv[1] : "12,345 sats";
  const auto item = bar.createItem(StatusItem::squareLength);
  item->setAction(test::actionOn(
      *item, [] { say("clicked"); },
      [&text] {
        say("menu");
        return test::sampleMenu(text, [](const std::string& title) { say("chosen " + title); });
      }));
  item->setImage(test::sampleImage(bar, text));
  item->setToolTip("Orvane · Balance " + text);
  return QApplication::exec();
}
