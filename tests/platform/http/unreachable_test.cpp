#include <gtest/gtest.h>
#include <sched.h>

#include "platform/eventloop/real_time.h"
#include "platform/http/qt_http_transport.h"

namespace orvane::test {
namespace {

/// A program of its own, because it cuts itself off: nothing that it sends can leave the process.
class UnreachableTest : public RealTimeTest {
 protected:
  static bool cutOff() {
    return ::unshare(CLONE_NEWNET) == 0 || ::unshare(CLONE_NEWUSER | CLONE_NEWNET) == 0;
  }

  void SetUp() override {
    if (!isCutOff) GTEST_SKIP() << "no network namespace of its own";
  }

  HttpResult get(const char* url) {
    QtHttpTransport transport;
    return run(transport.get({.url = url, .idleTimeout = std::chrono::seconds(10)}));
  }

  static inline const bool isCutOff = cutOff();
};

TEST_F(UnreachableTest, WithoutANetworkAnAddressIsNotReached) {
  for (const char* url : {"https://192.0.2.1/", "https://[2001:db8::1]/"}) {
    const HttpResult result = get(url);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error(), HttpFailure::notConnectedToInternet) << url;
  }
}

TEST_F(UnreachableTest, UnknownHost) {
  const HttpResult result = get("https://orvane.invalid/");
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error(), HttpFailure::cannotFindHost);
}

}  // namespace
}  // namespace orvane::test
