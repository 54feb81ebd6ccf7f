#include <cstdlib>
#include <mutex>

#include "platform/http/transport_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

class FailuresTest : public TransportTest {
 protected:
  static void expectFailure(const HttpResult& result, HttpFailure failure) {
    ASSERT_FALSE(result) << "status " << result->status;
    EXPECT_EQ(result.error(), failure);
  }
};

TEST_F(FailuresTest, ALostConnectionIsALossAndTheRequestIsSentOnce) {
  // Before the first byte of the answer, and in the middle of its body.
  for (const FaultKind kind : {FaultKind::hangUp, FaultKind::drop}) {
    for (int round = 0; round < 5; ++round) {
      local.fault({.service = Service::pool, .kind = kind});
      const std::size_t before = local.requests().size();
      expectFailure(get(profileRequest()), HttpFailure::networkConnectionLost);
      letPass(5ms);
      EXPECT_EQ(local.requests().size() - before, 1U) << faultName(kind);
      local.clearFaults();
    }
  }
  for (const std::string beginning :
       {"HTTP/1.1 20", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n10\r\n0123"}) {
    const OddServer server([&](const Request&) { return beginning; }, Outcome::cut);
    expectFailure(getFrom(server), HttpFailure::networkConnectionLost);
    EXPECT_EQ(server.requests().size(), 1U) << beginning;
  }
}

TEST_F(FailuresTest, ConnectionsAreNotKeptSoNoneCanBeStale) {
  ASSERT_TRUE(get(tipRequest()));
  local.fault({.service = Service::explorer, .kind = FaultKind::refuse});  // ends open connections
  expectFailure(get(tipRequest()), HttpFailure::cannotConnectToHost);
  local.clearFaults();
  EXPECT_TRUE(get(tipRequest()));
}

TEST_F(FailuresTest, WaitsEndAtTheIdleTimeOutAndAnEndlessDripAtTheLongestExchange) {
  QtHttpTransport impatient({.extraCaFile = local.caFile(), .longestExchange = 1s});
  HttpRequest request = tipRequest();
  request.idleTimeout = 1s;
  local.fault({.service = Service::explorer, .kind = FaultKind::silence, .count = 1});
  const auto time = timeOf([&] { expectFailure(get(request), HttpFailure::timedOut); });
  EXPECT_GE(time, 1s);
  EXPECT_LT(time, 15s);

  local.fault({.service = Service::explorer, .kind = FaultKind::slow, .interval = 250ms});
  expectFailure(run(impatient.get(request)), HttpFailure::timedOut);
  const HttpResult drip = get(request);
  ASSERT_TRUE(drip) << "what drips is not idle";
  EXPECT_EQ(drip->body.size(), 6U) << "six digits, a second and a half";
}

TEST_F(FailuresTest, TheLargestBodyIsWhole) {
  constexpr std::size_t limit = 32UL * 1024 * 1024;
  for (const std::size_t size : {limit, limit + 1}) {
    const OddServer server([size](const Request&) {
      return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(size) + "\r\n\r\n" +
             std::string(size, 'a');
    });
    const HttpResult result = getFrom(server);
    EXPECT_EQ(result.has_value(), size == limit);
    EXPECT_EQ(result.value_or(HttpResponse{}).body.size(), size == limit ? size : 0);
  }
}

TEST_F(FailuresTest, WhatIsNotTrustedOrCannotBeSentFailsAndSendsNoRequest) {
  QtHttpTransport distrustful;
  expectFailure(run(distrustful.get(profileRequest())), HttpFailure::other);
  QtHttpTransport withoutFile({.extraCaFile = "/nonexistent/ca.pem"});
  expectFailure(run(withoutFile.get(profileRequest())), HttpFailure::other);

  HttpRequest request = profileRequest();
  const std::string host = local.host(Service::pool);
  request.url = "https://[::ffff:127.0.0.1]" + host.substr(host.find(':'));
  expectFailure(get(request), HttpFailure::other);  // the same machine by another name
  request = profileRequest();
  request.headers[0].value += "\r\nX-Smuggled: 1";
  expectFailure(get(request), HttpFailure::other);
  request = profileRequest();
  request.url.replace(0, 5, "http");
  expectFailure(get(request), HttpFailure::invalidUrl);
  EXPECT_TRUE(local.requests().empty());
}

TEST_F(FailuresTest, CancellingAbortsTheRequestAtOnce) {
  local.fault({.service = Service::explorer, .kind = FaultKind::silence});
  std::optional<HttpResult> result;
  QEventLoop loop;
  TaskScope scope(*executor);
  const TaskHandle task =
      scope.spawn(detail::keepResult(transport.get(tipRequest()), result, loop));
  ASSERT_TRUE(letPassUntil([&] { return !local.requests().empty(); }));
  const auto time = timeOf([&] {
    task.cancel();
    loop.exec();
  });
  expectFailure(result.value(), HttpFailure::cancelled);
  EXPECT_LT(time, 5s) << "the time-out is 20 seconds";
}

TEST_F(FailuresTest, DestructionInTheMiddleOfAnythingIsClean) {
  local.fault({.service = Service::explorer, .kind = FaultKind::slow, .interval = 1ms});
  for (const auto delay : {0ms, 1ms, 2ms, 3ms, 5ms, 8ms, 13ms}) {
    std::optional<HttpResult> result;
    QEventLoop loop;
    const auto time = timeOf([&] {
      TaskScope scope(*executor);
      scope.spawn(detail::keepResult(transport.get(tipRequest()), result, loop));
      letPass(delay);
    });
    EXPECT_LT(time, 4s) << "Qt waits five seconds for a thread that does not end";
    EXPECT_FALSE(result && !*result) << "an end that nobody saw";
  }
}

TEST_F(FailuresTest, TheSystemsProxyIsAskedForATunnelAndSeesNoHeaders) {
  std::mutex mutex;
  std::vector<Request> seen;
  const services::HttpServer proxy(0, nullptr, [&](const Request& request, Connection& connection) {
    const std::lock_guard lock(mutex);
    seen.push_back(request);
    static_cast<void>(connection.write("HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\n\r\n"));
    return Outcome::finish;
  });
  ::setenv("https_proxy", ("http://127.0.0.1:" + std::to_string(proxy.port())).c_str(), 1);
  ::setenv("no_proxy", "", 1);
  EXPECT_FALSE(get(profileRequest()));
  ::unsetenv("https_proxy");
  ::unsetenv("no_proxy");

  EXPECT_TRUE(local.requests().empty());
  const std::lock_guard lock(mutex);
  ASSERT_EQ(seen.size(), 1U);
  EXPECT_EQ(seen.front().method, "CONNECT");
  EXPECT_EQ(seen.front().target, local.host(Service::pool));
  EXPECT_EQ(seen.front().header("Pool-Auth-Token"), nullptr);
}

}  // namespace
}  // namespace orvane::test
