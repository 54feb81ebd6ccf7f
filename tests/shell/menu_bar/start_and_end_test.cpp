#include "shell/app/balance_app_delegate.h"
#include "shell/menu_bar/runtime_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

class LaunchPresentationTest : public testing::Test {
 protected:
  CallLog log;
  VirtualExecutor executor;
  FakeApplication application{log};
  LaunchPresentation presentation{executor, application, "Orvane"};
};

TEST_F(LaunchPresentationTest, FindsAWindowThatComesWithinTheLastRetry) {
  application.addWindow("Orvane Help");
  presentation.presentMainWindow();
  executor.advance(999ms);
  application.addWindow("Orvane");
  EXPECT_EQ(log, CallLog());
  executor.advance(1ms);
  EXPECT_EQ(log, (CallLog{"policy regular", "unhide", "Orvane: order front", "activate"}));
  EXPECT_EQ(executor.pendingTimers(), 0U);
}

TEST_F(LaunchPresentationTest, GivesUpSilentlyAfterTenRetries) {
  presentation.presentMainWindow();
  executor.advance(1s);
  EXPECT_EQ(executor.pendingTimers(), 0U);
}

class OrderlyExitTest : public testing::Test {
 protected:
  VirtualExecutor executor;
  bool mayEnd = false;
  int ends = 0;
  OrderlyExit exit{executor, [this] { return mayEnd; }, [this] { ++ends; }};
};

TEST_F(OrderlyExitTest, EndsAtOnceWhenNothingIsOnItsWay) {
  mayEnd = true;
  exit.begin();
  EXPECT_EQ(ends, 1);
}

TEST_F(OrderlyExitTest, WaitsForTheLastWriteButNoLongerThanTwoSeconds) {
  exit.begin();
  exit.begin();
  executor.advance(1s);
  EXPECT_EQ(ends, 0);
  executor.advance(1s);
  EXPECT_EQ(ends, 1);
  executor.advance(10s);
  EXPECT_EQ(ends, 1);
}

TEST_F(OrderlyExitTest, EndsSoonAfterTheLastWrite) {
  exit.begin();
  executor.advance(500ms);
  mayEnd = true;
  executor.advance(20ms);
  EXPECT_EQ(ends, 1);
}

}  // namespace
}  // namespace orvane::test
