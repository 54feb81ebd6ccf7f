#pragma once

#include "fake_host.h"
#include "platform/eventloop/qt_executor.h"
#include "platform/tray/desktop_status_bar.h"
#include "platform/tray/drawing/status_drawing.h"
#include "sample_status.h"
#include "support/desktop_session.h"

namespace orvane::test {
/// Whether a pixel has this colour, give or take what blending rounds.
[[nodiscard]] inline bool hasColor(const QImage& picture, const QColor& color) {
  const QImage pixels = picture.convertToFormat(QImage::Format_ARGB32);
  const auto* const first = reinterpret_cast<const QRgb*>(pixels.constBits());
  const auto* const end = first + pixels.sizeInBytes() / 4;
  return std::any_of(first, end, [&](QRgb pixel) {
    const auto isNear = [](int a, int b) { return std::abs(a - b) <= 1; };
    return qAlpha(pixel) == 255 && isNear(qRed(pixel), color.red()) &&
           isNear(qGreen(pixel), color.green()) && isNear(qBlue(pixel), color.blue());
  });
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
  /// Whether the icon is drawn for such a panel; in its smallest size no pixel is all symbol.
  [[nodiscard]] bool isDrawnFor(PanelShade shade) {
    const auto ink = inkFor(sampleImage(*bar, ""), shade);
    const auto outline = inkFor(StatusImage{}, PanelShade::unknown).outline;
    return QTest::qWaitFor([&] {
      const auto icons = host->icons();
      return !icons.isEmpty() && hasColor(icons.constLast(), ink.symbol) &&
             hasColor(icons.constLast(), *outline) == ink.outline.has_value();
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
