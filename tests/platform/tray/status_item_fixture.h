#pragma once

#include <QTest>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fake_host.h"
#include "platform/eventloop/qt_executor.h"
#include "platform/tray/desktop_status_bar.h"
#include "sample_status.h"

namespace orvane::test {

/// Whether a pixel has exactly this colour.
[[nodiscard]] inline bool hasColor(const QImage& picture, const QColor& color) {
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixelColor(x, y) == color) { return true; }
    }
  }
  return false;
}

/// A status item as the program uses it, and a host that may come for it.
class StatusItemTest : public ::testing::Test {
 protected:
  void createItem(const char* desktop = "") {
    qputenv("XDG_CURRENT_DESKTOP", desktop);
    bar.emplace(executor, [this](const std::string& token) { log.push_back("token " + token); });
    item = bar->createItem(StatusItem::squareLength);
    item->setAction(
        actionOn(*item, [this] { log.emplace_back("clicked"); }, [this] { return menu; }));
    showText("12,345 sats");
  }
  void createRegisteredItem(const char* desktop = "") {
    host->startWatcher();
    createItem(desktop);
    ASSERT_TRUE(isRegistered());
  }
  [[nodiscard]] bool isRegistered() {
    return QTest::qWaitFor([this] { return !host->registered.isEmpty(); });
  }
  void showText(const std::string& text) {
    item->setImage(sampleImage(*bar, text));
    item->setToolTip("Orvane · Balance " + text);
  }
  [[nodiscard]] Menu sample(const std::string& balance) {
    return sampleMenu(balance, [this](const std::string& title) { log.push_back(title); });
  }
  /// Whether the host hears this signal after what `act` does; what it heard before is forgotten.
  [[nodiscard]] bool hears(const char* signal, const std::function<void()>& act) {
    host->signalsHeard.clear();
    act();
    return QTest::qWaitFor([&] { return host->signalsHeard.contains(QLatin1String(signal)); });
  }

  std::unique_ptr<FakeHost> host = std::make_unique<FakeHost>();
  QtExecutor executor;
  std::vector<std::string> log;
  std::optional<Menu> menu = sample("12,345 sats");
  std::optional<DesktopStatusBar> bar;
  std::unique_ptr<StatusItem> item;
};

}  // namespace orvane::test
