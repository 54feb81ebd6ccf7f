#include <QScreen>
#include "platform/x11/x11_display.h"
#include "status_item_fixture.h"

namespace orvane::test { namespace {

/// The least that an old system tray does: it owns the selection, takes one window in and gives it
/// a place in a panel of one colour. It has a connection to the X server of its own.
class FakeTray {
 public:
  static constexpr std::uint32_t slotHeight = 22;

  explicit FakeTray(const QColor& panelColor) {
    const std::uint32_t values[] = {panelColor.rgb(), 1};
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, panel_, display_.root(), 0, 0, 400, 30, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    xcb_map_window(connection_, panel_);
    const auto selection = display_.atom("_NET_SYSTEM_TRAY_S0");
    for (const auto owned : {selection, display_.atom("_XSETTINGS_S0")}) {
      xcb_set_selection_owner(connection_, panel_, owned, XCB_CURRENT_TIME);
    }
    display_.send(display_.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY, display_.root(), "MANAGER",
                  {XCB_CURRENT_TIME, selection, panel_});
    display_.flush();
  }
  ~FakeTray() { xcb_disconnect(connection_); }

  /// The width of the icon's place, and of the icon if it is there already; one that comes is let
  /// have the width that it asks for.
  void allot(std::uint32_t width) {
    width_ = width;
    if (icon_ == XCB_WINDOW_NONE) { return; }
    xcb_configure_window(connection_, icon_, XCB_CONFIG_WINDOW_WIDTH, &width_);
  }

  void tellTextColor(const QColor& color) {
    const auto red = color.red() * 257U, green = color.green() * 257U, blue = color.blue() * 257U;
    display_.setProperty(panel_, "_NET_SYSTEM_TRAY_COLORS", {red, green, blue});
    display_.flush();
  }
  /// As the desktop does that has GTK's panels draw two pixels for one.
  void enlarge() {
    using namespace std::string_view_literals;
    constexpr auto wire =
        "\0\0\0\0\1\0\0\0\1\0\0\0\0\0\x17\0Gdk/WindowScalingFactor\0\0\0\0\0\2\0\0\0"sv;
    const auto settings = display_.atom("_XSETTINGS_SETTINGS");
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, panel_, settings, settings, 8,
                        wire.size(), wire.data());
    display_.flush();
  }

  /// The icon as it stands on the screen; null until a window asked to be taken in.
  [[nodiscard]] QImage picture() {
    const auto request = display_.atom("_NET_SYSTEM_TRAY_OPCODE");
    while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
      const auto& message = *reinterpret_cast<const xcb_client_message_event_t*>(event.get());
      const bool isMessage = (event->response_type & ~0x80) == XCB_CLIENT_MESSAGE;
      if (!isMessage || message.type != request) { continue; }
      icon_ = message.data.data32[2];
      xcb_create_window(connection_, XCB_COPY_FROM_PARENT, place_, panel_, 4, 4, 300, slotHeight, 0,
                        XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
      xcb_map_window(connection_, place_);
      xcb_reparent_window(connection_, icon_, place_, 0, 0);
      xcb_configure_window(connection_, icon_, XCB_CONFIG_WINDOW_HEIGHT, &slotHeight);
      xcb_map_window(connection_, icon_);
      display_.flush();
    }
    if (icon_ == XCB_WINDOW_NONE) { return {}; }
    if (width_ == 0) { return QGuiApplication::primaryScreen()->grabWindow(icon_).toImage(); }
    xcb_configure_window(connection_, place_, XCB_CONFIG_WINDOW_WIDTH, &width_);
    display_.flush();
    return QGuiApplication::primaryScreen()->grabWindow(place_).toImage();
  }

 private:
  xcb_connection_t* connection_ = xcb_connect(nullptr, nullptr);
  X11Display display_{*connection_};
  xcb_window_t panel_ = xcb_generate_id(connection_);
  xcb_window_t place_ = xcb_generate_id(connection_);
  xcb_window_t icon_ = XCB_WINDOW_NONE;
  std::uint32_t width_ = 0;
};

class DockedTest : public StatusItemTest {
 protected:
  /// Whether the icon stands on the panel's own colour, drawn in one that stands out from it.
  [[nodiscard]] bool isOn(const QColor& panel) {
    const auto shade = panel == darkPanel ? PanelShade::dark : PanelShade::light;
    const auto ink = inkFor(sampleImage(*bar, ""), shade).symbol;
    return QTest::qWaitFor([&] {
      const QImage picture = tray->picture();
      return picture.width() == FakeTray::slotHeight && picture.pixelColor(0, 0) == panel &&
             hasColor(picture, ink);
    });
  }

  const QColor lightPanel{0xf4, 0xf4, 0xf0};
  const QColor darkPanel{0x2b, 0x2b, 0x2b};
  std::optional<FakeTray> tray;
};

TEST_F(DockedTest, ASquareIconInColoursThatSuitThePanelAroundIt) {
  for (const auto& panel : {lightPanel, darkPanel}) {
    tray.emplace(panel);
    createItem();
    EXPECT_TRUE(isOn(panel)) << panel.name().toStdString();
    item.reset();
  }
}

TEST_F(DockedTest, APanelWithSquareIconsGetsAWholeSymbolUntilItMakesRoom) {
  tray.emplace(lightPanel);
  tray->allot(FakeTray::slotHeight);
  createItem("XFCE");
  const auto hasFigureAtItsFoot = [&] {
    const QImage picture = tray->picture();
    const QImage foot = picture.copy(0, picture.height() - 2, FakeTray::slotHeight, 2);
    return hasColor(foot, inkFor(sampleImage(*bar, ""), PanelShade::light).text);
  };
  EXPECT_TRUE(QTest::qWaitFor(hasFigureAtItsFoot)) << "nothing of a wide image reaches down there";
  tray->allot(120);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !hasFigureAtItsFoot(); }));
}

TEST_F(DockedTest, APanelThatIsEnlargedGetsALargerIcon) {
  tray.emplace(lightPanel);
  createItem();
  ASSERT_TRUE(isOn(lightPanel));
  tray->enlarge();
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return tray->picture().height() == 2 * FakeTray::slotHeight; }));
}

TEST_F(DockedTest, ItsTextColorIsForAnItemOnTheBusAsWell) {
  tray.emplace(lightPanel);
  tray->tellTextColor(Qt::black);
  createRegisteredItem("MATE");
  EXPECT_TRUE(isDrawnFor(PanelShade::light));
  tray->tellTextColor(Qt::white);
  EXPECT_TRUE(isDrawnFor(PanelShade::dark));
}

TEST_F(DockedTest, ALateTrayGetsTheIconOfAWatcherThatDrawsNothing) {
  createRegisteredItem();
  tray.emplace(lightPanel);
  host->stopDrawing();
  EXPECT_TRUE(isOn(lightPanel));
}

TEST_F(DockedTest, ATrayThatTakesNothingLeavesTheItemToTheBus) {
  tray.emplace(lightPanel);
  createRegisteredItem("XFCE");  // nobody handles what the tray is asked
}

}}  // namespace orvane::test
