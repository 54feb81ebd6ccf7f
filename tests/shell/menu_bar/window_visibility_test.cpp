#include "shell/menu_bar/window_visibility.h"

#include "shell/menu_bar/runtime_fixture.h"

namespace orvane::test {
namespace {

class WindowVisibilityTest : public RuntimeFixture {
 protected:
  WindowVisibilityTest() { attach(); }

  int changes = 0;
  WindowVisibility visibility{runtime, [this] { ++changes; }};
};

TEST_F(WindowVisibilityTest, HidesWithTheApplicationAndComesBackWithItsWindow) {
  visibility.handleWindow(nullptr);
  help.makeKeyAndOrderFront();
  EXPECT_EQ(changes, 0);
  visibility.handleWindow(&help);
  EXPECT_TRUE(visibility.showsContent()) << "it was on the screen already";
  EXPECT_EQ(changes, 1);
  runtime->hideMainWindow();
  EXPECT_FALSE(visibility.showsContent());
  runtime->showMainWindow();
  EXPECT_FALSE(visibility.showsContent()) << "the help window itself is still hidden";
  help.makeKeyAndOrderFront();
  EXPECT_TRUE(visibility.showsContent());
}

TEST_F(WindowVisibilityTest, AWindowOpenedInTheStatusAreaStaysClearUntilTheApplicationIsBack) {
  visibility.handleWindow(&help);
  runtime->hideMainWindow();
  help.makeKeyAndOrderFront();
  visibility.handleWindow(&help);
  EXPECT_FALSE(visibility.showsContent());
  help.miniaturize();
  help.deminiaturize();
  EXPECT_FALSE(visibility.showsContent());
  runtime->showMainWindow();
  EXPECT_TRUE(visibility.showsContent());
}

TEST_F(WindowVisibilityTest, MiniaturizingAndClosingTheLastReportedWindowHideTheContent) {
  visibility.handleWindow(&window);
  help.makeKeyAndOrderFront();
  EXPECT_FALSE(visibility.showsContent());
  visibility.handleWindow(&help);
  window.miniaturize();
  EXPECT_TRUE(visibility.showsContent());
  help.miniaturize();
  EXPECT_FALSE(visibility.showsContent());
  help.deminiaturize();
  EXPECT_TRUE(visibility.showsContent());
  help.performClose();
  EXPECT_FALSE(visibility.showsContent());
}

}  // namespace
}  // namespace orvane::test
