#include <sched.h>
#include "platform/eventloop/real_time.h"
#include "platform/http/qt_http_transport.h"

namespace orvane::test { namespace {

using UnreachableTest = RealTimeTest;

/// A program of its own, because it cuts itself off: nothing that it sends can leave the process.
bool cutOff() {
  return ::unshare(CLONE_NEWNET) == 0 || ::unshare(CLONE_NEWUSER | CLONE_NEWNET) == 0;
}
const bool isCutOff = cutOff();

TEST_F(UnreachableTest, WithoutANetworkNoAddressIsReachedAndNoHostFound) {
  if (!isCutOff) { GTEST_SKIP() << "no network namespace of its own"; }
  QtHttpTransport transport;
  for (const auto& [url, failure] :
       {std::pair("https://192.0.2.1/", HttpFailure::notConnectedToInternet),
        std::pair("https://[2001:db8::1]/", HttpFailure::notConnectedToInternet),
        std::pair("https://orvane.invalid/", HttpFailure::cannotFindHost)}) {
    const HttpResult result =
        run(transport.get({.url = url, .idleTimeout = std::chrono::seconds(10)}));
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error(), failure) << url;
  }
}

}}  // namespace orvane::test
