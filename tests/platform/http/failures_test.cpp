#include <cstdlib>
#include <mutex>

#include "platform/http/odd_server.h"
#include "platform/http/transport_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

class FailuresTest : public TransportTest {
 protected:
  void expectFailure(const HttpResult& result, HttpFailure failure) {
    ASSERT_FALSE(result) << "status " << result->status;
    EXPECT_EQ(result.error(), failure);
  }
};

TEST_F(FailuresTest, ALostConnectionIsALossAndTheRequestIsSentOnce) {
  // Before the first byte of the answer, and in the middle of its body.
  for (const FaultKind kind : {FaultKind::hangUp, FaultKind::drop}) {
    for (int round = 0; round < 10; ++round) {
      SCOPED_TRACE(faultName(kind));
      local.fault({.service = Service::pool, .kind = kind});
      const std::size_t before = local.requests().size();
      expectFailure(get(profileRequest()), HttpFailure::networkConnectionLost);
      letPass(5ms);
      EXPECT_EQ(local.requests().size() - before, 1U);
      local.clearFaults();
    }
  }
}

TEST_F(FailuresTest, ConnectionsAreNotKeptSoNoneCanBeStale) {
  ASSERT_TRUE(get(profileRequest()));
  local.fault({.service = Service::pool, .kind = FaultKind::refuse});  // ends open connections
  local.clearFaults();
  EXPECT_TRUE(get(profileRequest()));
  EXPECT_EQ(local.requests().size(), 2U);
}

TEST_F(FailuresTest, RefusedConnection) {
  local.fault({.service = Service::explorer, .kind = FaultKind::refuse});
  expectFailure(get(tipRequest()), HttpFailure::cannotConnectToHost);
}

TEST_F(FailuresTest, AnAnswerCutOffWithinItsHeadOrAChunkIsALoss) {
  const std::vector<std::string> beginnings = {
      "HTTP/1.1 20", "HTTP/1.1 200 OK\r\nContent-Le",
      "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n10\r\n0123"};
  for (const std::string& beginning : beginnings) {
    SCOPED_TRACE(beginning);
    const OddServer server([&](const Request&) { return beginning; }, Outcome::cut);
    QtHttpTransport odd({.extraCaFile = server.caFile()});
    expectFailure(run(odd.get({.url = server.origin(), .idleTimeout = 5s})),
                  HttpFailure::networkConnectionLost);
    EXPECT_EQ(server.requests().size(), 1U);
  }
}

struct Timed {
  HttpResult result;
  ExecutorClock::duration time{};
};

Task<Timed> timed(Task<HttpResult> task) {
  const TaskContext context = co_await currentContext();
  const Instant begin = context.executor->now();
  HttpResult result = co_await std::move(task);
  co_return Timed{.result = std::move(result), .time = context.executor->now() - begin};
}

TEST_F(FailuresTest, WaitsEndAtTheIdleTimeOutAndAnEndlessDripAtTheLongestExchange) {
  local.fault({.service = Service::explorer, .kind = FaultKind::silence});
  local.fault({.service = Service::pool, .kind = FaultKind::silence});
  local.fault({.service = Service::fallback, .kind = FaultKind::slow, .interval = 1s});
  local.fault({.service = Service::other, .kind = FaultKind::delay, .delay = 1200ms});
  constexpr auto longest = 3s;
  QtHttpTransport impatient({.extraCaFile = local.caFile(), .longestExchange = longest});
  const auto ask = [&](Service service, std::chrono::seconds idle) {
    HttpRequest request = requestTo(service, tipTarget);
    request.idleTimeout = idle;
    return timed(impatient.get(std::move(request)));
  };
  std::vector<Task<Timed>> tasks;
  tasks.push_back(ask(Service::explorer, 1s));
  tasks.push_back(ask(Service::pool, 60s));
  tasks.push_back(ask(Service::fallback, 2s));  // six bytes take six seconds
  tasks.push_back(ask(Service::other, 2s));
  const std::vector<Timed> ends = run(allOf(std::move(tasks)));

  expectFailure(ends[0].result, HttpFailure::timedOut);
  EXPECT_GE(ends[0].time, 1s);
  EXPECT_LT(ends[0].time, longest);
  for (const Timed& endless : {ends[1], ends[2]}) {
    expectFailure(endless.result, HttpFailure::timedOut);
    EXPECT_GE(endless.time, longest);
  }
  EXPECT_TRUE(ends[3].result) << "late, but in time";
}

TEST_F(FailuresTest, ADripIsNotIdle) {
  local.fault({.service = Service::explorer, .kind = FaultKind::slow, .interval = 250ms});
  HttpRequest request = tipRequest();
  request.idleTimeout = 1s;
  const HttpResult result = get(request);
  ASSERT_TRUE(result);
  EXPECT_EQ(result->body.size(), 6U) << "six digits, a second and a half";
}

TEST_F(FailuresTest, ABodyWithoutEndIsGivenUp) {
  local.fault({.service = Service::explorer, .kind = FaultKind::huge});
  expectFailure(get(tipRequest()), HttpFailure::other);
}

TEST_F(FailuresTest, TheLargestBodyIsWhole) {
  constexpr std::size_t limit = 32UL * 1024 * 1024;
  for (const std::size_t size : {limit, limit + 1}) {
    const OddServer server([size](const Request&) {
      return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(size) + "\r\n\r\n" +
             std::string(size, 'a');
    });
    QtHttpTransport odd({.extraCaFile = server.caFile()});
    const HttpResult result = run(odd.get({.url = server.origin()}));
    EXPECT_EQ(result.has_value(), size == limit);
    if (result) {
      EXPECT_EQ(result->body.size(), size);
    }
  }
}

TEST_F(FailuresTest, AnAuthorityThatIsNotTrustedFailsAndSeesNoRequest) {
  QtHttpTransport distrustful;
  expectFailure(run(distrustful.get(profileRequest())), HttpFailure::other);
  QtHttpTransport withoutFile({.extraCaFile = "/nonexistent/ca.pem"});
  expectFailure(run(withoutFile.get(profileRequest())), HttpFailure::other);
  EXPECT_TRUE(local.requests().empty());
}

TEST_F(FailuresTest, ACertificateForAnotherNameFailsAndSeesNoRequest) {
  const std::string host = local.host(Service::pool);
  HttpRequest request = profileRequest();
  request.url = "https://[::ffff:127.0.0.1]" + host.substr(host.find(':'));  // the same machine
  expectFailure(get(request), HttpFailure::other);
  EXPECT_TRUE(local.requests().empty());
}

TEST_F(FailuresTest, WhatCannotBeSentIsNotSent) {
  HttpRequest request = profileRequest();
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
  ASSERT_TRUE(result);
  expectFailure(*result, HttpFailure::cancelled);
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
