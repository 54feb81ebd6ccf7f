#pragma once

#include "fake_host.h"
#include "platform/eventloop/qt_executor.h"
#include "platform/tray/desktop_status_bar.h"
#include "platform/tray/drawing/status_drawing.h"
#include "sample_status.h"
#include "support/desktop_session.h"

namespace orvane::test {
/// Whether a pixel has exactly this colour.
[[nodiscard]] inline bool hasColor(const QImage& picture, const QColor& color) {
  const QImage pixels = picture.convertToFormat(QImage::Format_ARGB32);
  const auto* const first = reinterpret_cast<const QRgb*>(pixels.constBits());
  const auto* const end = first + pixels.sizeInBytes() / 4;
  return std::find(first, end, color.rgba()) != end;
}

/// A status item as the program uses it, and a host that may come for it.
class StatusItemTest : public ::testing::Test {
 protected:
  void createItem(const char* desktop = "") {
    qputenv("XDG_CURRENT_DESKTOP", desktop);
    bar.emplace(executor, [this](const std::string& token) { log.push_back("token " + token); });
    item = bar->createItem(StatusItem::squareLength);
    useItem(
        *item, *bar, "12,345 sats", [this] { log.emplace_back("clicked"); },
        [this] { return menu; });
  }
  void createRegisteredItem(const char* desktop = "") {
    host->startWatcher();
    createItem(desktop);
    ASSERT_TRUE(isRegistered());
  }
  [[nodiscard]] bool isRegistered() {
    return QTest::qWaitFor([this] { return !host->registered.isEmpty(); });
  }
  void showText(const std::string& text) { item->setImage(sampleImage(*bar, text)); }
  [[nodiscard]] Menu sample(const std::string& balance) {
    return sampleMenu(balance, [this](const std::string& title) { log.push_back(title); });
  }
  /// Whether the host hears this signal after what `act` does; what it heard before is forgotten.
  [[nodiscard]] bool hears(const char* signal, const std::function<void()>& act) {
    host->signalsHeard.clear();
    act();
    return QTest::qWaitFor([&] { return host->signalsHeard.contains(QLatin1String(signal)); });
  }
  /// Whether all sizes of the icon are drawn for such a panel.
  [[nodiscard]] bool isDrawnFor(PanelShade shade) {
    const auto ink = inkFor(sampleImage(*bar, ""), shade).symbol;
    return QTest::qWaitFor([&] {
      const auto icons = host->icons();
      return !icons.isEmpty() &&
             std::ranges::all_of(icons, [&](const QImage& icon) { return hasColor(icon, ink); });
    });
  }

  std::unique_ptr<FakeHost> host = std::make_unique<FakeHost>();
  QtExecutor executor;
  std::vector<std::string> log;
  Menu menu = sample("12,345 sats");
  std::optional<DesktopStatusBar> bar;
  std::unique_ptr<StatusItem> item;
};
}  // namespace orvane::test
