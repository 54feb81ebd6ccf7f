/// Puts a status item with sample figures into whatever tray there is and writes what the user
/// does to it, one event a line: "clicked", "menu", "chosen Open Orvane". Each line that it reads
/// is the next text; an empty one leaves the symbol alone and untinted.

#include <QApplication>
#include <QSocketNotifier>
#include <cstdio>
#include <iostream>
#include <string>

#include <fmt/format.h>

#include "platform/desktop/status/desktop_status_bar.h"
#include "platform/eventloop/qt_executor.h"
#include "sample_status.h"

namespace {

using namespace orvane;

void say(const std::string& line) {
  fmt::print("{}\n", line);
  std::fflush(stdout);
}

void showText(const StatusBar& bar, StatusItem& item, const std::string& text) {
  auto image = test::sampleImage(bar, text);
  if (text.empty()) {
    image.symbolColor.reset();
    image.size.width -= 3;
  }
  item.setImage(image);
  item.setToolTip("Orvane · Balance " + text);
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QtExecutor executor;
  DesktopStatusBar bar(executor);
  const auto item = bar.createItem(StatusItem::squareLength);

  std::string text = argc > 1 ? argv[1] : "12,345 sats";
  item->setAction(test::actionOn(
      *item, [] { say("clicked"); },
      [&text] {
        say("menu");
        return test::sampleMenu(text, [](const std::string& title) {
          say("chosen " + title);
          if (title == "Quit Orvane") QApplication::quit();
        });
      }));
  showText(bar, *item, text);

  QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &input, [&] {
    if (std::getline(std::cin, text)) {
      showText(bar, *item, text);
    } else {
      input.setEnabled(false);
    }
  });
  return QApplication::exec();
}
