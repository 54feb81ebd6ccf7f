#pragma once

#include <QTest>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fake_host.h"
#include "platform/eventloop/qt_executor.h"
#include "platform/tray/desktop_status_item.h"
#include "sample_status.h"

namespace orvane::test {

/// A status item as the program uses it, and a host that may come for it.
class StatusItemTest : public ::testing::Test {
 protected:
  void createItem(std::vector<std::string> desktopNames = {}) {
    item = std::make_unique<DesktopStatusItem>(
        executor, std::move(desktopNames),
        [this](const std::string& token) { log.push_back("token " + token); });
    item->setAction(
        actionOn(*item, [this] { log.emplace_back("clicked"); }, [this] { return menu; }));
    showText("12,345 sats");
  }
  void createRegisteredItem(std::vector<std::string> desktopNames = {}) {
    host->startWatcher();
    createItem(std::move(desktopNames));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !host->registered.isEmpty(); }));
  }
  void showText(const std::string& text) {
    item->setImage(sampleImage(bar, text));
    item->setToolTip("Orvane · Balance " + text);
  }
  [[nodiscard]] Menu sample(const std::string& balance) {
    return sampleMenu(balance, [this](const std::string& title) { log.push_back(title); });
  }
  [[nodiscard]] bool hears(const char* signal) {
    return QTest::qWaitFor([&] { return host->signalsHeard.contains(QLatin1String(signal)); });
  }

  std::unique_ptr<FakeHost> host = std::make_unique<FakeHost>();
  QtExecutor executor;
  DesktopStatusBar bar{executor};
  std::vector<std::string> log;
  std::optional<Menu> menu = sample("12,345 sats");
  std::unique_ptr<DesktopStatusItem> item;
};

}  // namespace orvane::test
