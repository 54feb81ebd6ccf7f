#include "prices/bitcoin_price_service.h"

#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "support/run_task.h"
#include "support/scripted_transport.h"
#include "support/virtual_executor.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using Kind = PriceError::Kind;

constexpr CurrentBitcoinPrices primaryPrices{.eur = 84123.4, .usd = 97000};
constexpr CurrentBitcoinPrices fallbackPrices{.eur = 84123.45, .usd = 97000.1};

std::string rates(const std::string& eur, const std::string& usd) {
  return R"({"data":{"currency":"BTC","rates":{"EUR":)" + eur + R"(,"USD":)" + usd + "}}}";
}

class BitcoinPriceServiceTest : public ::testing::Test {
 protected:
  BitcoinPriceServiceTest() {
    transport.on("primary.test").respond(200, R"({"bitcoin":{"eur":84123.4,"usd":97000}})");
    transport.on("fallback.test").respond(200, rates("\"84123.45\"", "\"97000.1\""));
  }

  PriceResult current() { return runTask(executor, service.current()); }

  VirtualExecutor executor;
  ScriptedTransport transport{executor};
  BitcoinPriceService service{transport, "primary.test", "fallback.test"};
};

TEST_F(BitcoinPriceServiceTest, AsksThePrimarySourceOnlyWhenItAnswers) {
  EXPECT_EQ(current(), primaryPrices);
  EXPECT_EQ(current(), primaryPrices);
  ASSERT_EQ(transport.sent().size(), 2U);
  const HttpRequest& request = transport.sent()[1].request;
  EXPECT_EQ(request.url,
            "https://primary.test/api/v3/simple/price?ids=bitcoin&vs_currencies=eur,usd");
  EXPECT_TRUE(request.headers.empty());
}

TEST_F(BitcoinPriceServiceTest, FallsBackAfterAnyFailure) {
  auto& primary = transport.on("primary.test");
  const std::string prices = R"({"bitcoin":{"eur":1,"usd":1}})";
  primary.respond(429).times(1).respond(199, prices).times(1).respond(300, prices).times(1);
  primary.respond(200).times(1).respond(200, R"({"bitcoin":{"eur":1}})").times(1);
  primary.fail(HttpFailure::cannotConnectToHost).times(1).stall().times(1);
  for (std::size_t call = 1; call <= 7; ++call) {
    EXPECT_EQ(current(), fallbackPrices) << call;
    EXPECT_EQ(transport.sentTo("primary.test"), call);
    EXPECT_EQ(transport.sentTo("https://fallback.test/v2/exchange-rates?currency=BTC"), call);
  }
  EXPECT_EQ(current(), primaryPrices);
}

TEST_F(BitcoinPriceServiceTest, ReportsTheFallbacksFailure) {
  const std::vector<std::pair<HttpResult, PriceError>> cases{
      {HttpResponse{.status = 500, .body = ""}, {Kind::badServerResponse}},
      {HttpResponse{.status = 200, .body = ""}, {Kind::decoding}},
      {HttpResponse{.status = 200, .body = rates("\"1\"", "1")}, {Kind::decoding}},
      {HttpResponse{.status = 200, .body = R"({"data":{"rates":{"EUR":"1","usd":"1"}}})"},
       {Kind::cannotParseResponse}},
      {HttpResponse{.status = 200, .body = rates("\"1\"", "\"97,000.10\"")},
       {Kind::cannotParseResponse}},
      {HttpResponse{.status = 200, .body = rates("\" 1\"", "\"1\"")}, {Kind::cannotParseResponse}},
      {HttpResponse{.status = 200, .body = rates("\"1\\u0000\"", "\"1\"")},
       {Kind::cannotParseResponse}},
      {std::unexpected(HttpFailure::invalidUrl), {Kind::transport, HttpFailure::invalidUrl}},
      {std::unexpected(HttpFailure::timedOut), {Kind::transport, HttpFailure::timedOut}},
  };
  transport.on("primary.test").respond(503);
  for (const auto& [result, error] : cases) {
    transport.on("fallback.test").respondBy([result](const HttpRequest&) { return result; });
    EXPECT_EQ(current(), std::unexpected(error));
  }
}

TEST_F(BitcoinPriceServiceTest, ACancelledCallDoesNotGoOnToTheFallback) {
  transport.on("primary.test").neverAnswer();
  std::optional<PriceResult> outcome;
  TaskScope scope(executor);
  const TaskHandle call = scope.spawn(detail::storeResult(service.current(), outcome));
  executor.advance(5s);
  call.cancel();
  executor.runUntilIdle();
  EXPECT_EQ(outcome, std::unexpected(PriceError{Kind::cancelled}));
  EXPECT_EQ(transport.sent().size(), 1U);
  EXPECT_EQ(transport.aborted(), 1U);
  transport.on("primary.test").fail(HttpFailure::cancelled);
  EXPECT_EQ(current(), std::unexpected(PriceError{Kind::cancelled}));
  EXPECT_EQ(transport.sentTo("fallback.test"), 0U);
}

}  // namespace
}  // namespace orvane::test
