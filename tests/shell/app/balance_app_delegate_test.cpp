#include "shell/app/balance_app_delegate.h"

#include <gtest/gtest.h>

#include "support/fake_desktop.h"
#include "support/memory_defaults.h"
#include "support/virtual_executor.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

class BalanceAppDelegateTest : public testing::Test {
 protected:
  CallLog log;
  VirtualExecutor executor;
  FakeApplication application{log};
  MemoryDefaults defaults;
  BalanceAppDelegate delegate{executor, application, defaults};
  const CallLog presented{"policy regular", "unhide", "Orvane: order front", "activate"};
};

TEST_F(BalanceAppDelegateTest, PresentsAWindowThatComesWithinTheLastRetry) {
  application.addWindow("Orvane Help");
  delegate.didFinishLaunching();
  executor.advance(999ms);
  application.addWindow("Orvane");
  EXPECT_EQ(log, CallLog{"policy regular"});
  log.clear();
  executor.advance(1ms);
  EXPECT_EQ(log, presented);
  EXPECT_EQ(executor.pendingTimers(), 0U);
}

TEST_F(BalanceAppDelegateTest, GivesUpSilentlyAfterTenRetries) {
  delegate.didFinishLaunching();
  executor.advance(1s);
  EXPECT_EQ(executor.pendingTimers(), 0U);
}

TEST_F(BalanceAppDelegateTest, LeavesAReopenWithoutAWindowToOthersAndHandlesOneWithIt) {
  EXPECT_TRUE(delegate.shouldHandleReopen());
  application.addWindow("Orvane");
  EXPECT_FALSE(delegate.shouldHandleReopen());
  EXPECT_EQ(log, presented);
}

}  // namespace
}  // namespace orvane::test
