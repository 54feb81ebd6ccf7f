#include "support/scripted_transport.h"

#include <string>

#include <gtest/gtest.h>

#include "platform/async/task_scope.h"
#include "support/run_task.h"
#include "support/virtual_executor.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

class ScriptedTransportTest : public ::testing::Test {
 protected:
  HttpResult get(std::string url) {
    HttpRequest request{.url = std::move(url)};
    return runTask(executor, transport.get(std::move(request)));
  }
  int status(std::string url) { return get(std::move(url)).value_or(HttpResponse{}).status; }

  VirtualExecutor executor;
  ScriptedTransport transport{executor};
};

Task<void> getInto(HttpTransport& transport, std::string url, HttpResult& result) {
  HttpRequest request{.url = std::move(url)};
  result = co_await transport.get(std::move(request));
}

TEST_F(ScriptedTransportTest, GivesAnswersInOrderAndRepeatsTheLast) {
  transport.on("/a").respond(500).times(2).fail(HttpFailure::timedOut).respond(200);
  EXPECT_EQ(status("https://h/a"), 500);
  EXPECT_EQ(status("https://h/a"), 500);
  EXPECT_EQ(get("https://h/a").error(), HttpFailure::timedOut);
  EXPECT_EQ(status("https://h/a"), 200);
  EXPECT_EQ(status("https://h/a"), 200);
}

TEST_F(ScriptedTransportTest, NewerScriptsOverrideUntilTheyAreUsedUp) {
  transport.onEnding("/a").respond(200);
  transport.on("/a").respond(503).times(1);
  EXPECT_EQ(status("https://h/a"), 503);
  EXPECT_EQ(status("https://h/a"), 200);
  EXPECT_EQ(status("https://h/a/b"), 404);
  EXPECT_EQ(transport.sentTo("/a/b"), 1U);
}

TEST_F(ScriptedTransportTest, TakesVirtualTime) {
  const Instant start = executor.now();
  transport.on("slow").respond(200).after(5s);
  transport.on("stalled").stall();
  EXPECT_EQ(status("https://h/slow"), 200);
  EXPECT_EQ(executor.now() - start, 5s);
  EXPECT_EQ(get("https://h/stalled").error(), HttpFailure::timedOut);
  EXPECT_EQ(executor.now() - start, 65s);
  EXPECT_EQ(transport.sent()[1].at - start, 5s);
}

TEST_F(ScriptedTransportTest, AbortsWhatIsCancelledOrDestroyed) {
  transport.on("").neverAnswer();
  transport.on("slow").respond(200).after(5s);
  HttpResult first;
  HttpResult second;
  {
    TaskScope scope(executor);
    const TaskHandle cancelled = scope.spawn(getInto(transport, "https://h/slow", first));
    scope.spawn(getInto(transport, "https://h/never", second));
    executor.runUntilIdle();
    EXPECT_EQ(transport.inFlight(), 2U);
    cancelled.cancel();
    executor.runUntilIdle();
    EXPECT_EQ(first.error(), HttpFailure::cancelled);
    EXPECT_EQ(transport.aborted(), 1U);
    EXPECT_EQ(executor.pendingTimers(), 0U);
  }
  EXPECT_EQ(transport.aborted(), 2U);
  EXPECT_EQ(transport.inFlight(), 0U);
}

TEST_F(ScriptedTransportTest, DoesNotSendForATaskCancelledBefore) {
  HttpResult result;
  TaskScope scope(executor);
  scope.spawn(getInto(transport, "https://h/a", result)).cancel();
  executor.runUntilIdle();
  EXPECT_EQ(result.error(), HttpFailure::cancelled);
  EXPECT_TRUE(transport.sent().empty());
}

}  // namespace
}  // namespace orvane::test
