#include "address/watched_address_client.h"

#include <gtest/gtest.h>

#include "support/run_task.h"
#include "support/scripted_transport.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using Kind = ExplorerError::Kind;
using Summary = ExplorerResult<WatchedAddressSummary>;

const std::string address = "bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq";
const std::string base = "https://explorer.test:8443/api";
const std::string totalsPath = "/address/" + address;
const std::string transactionsPath = totalsPath + "/txs";
const std::string tipPath = "/blocks/tip/height";
const std::string totals = R"({"chain_stats":{"funded_txo_sum":150000,"spent_txo_sum":50000},)"
                           R"("mempool_stats":{"funded_txo_sum":0,"spent_txo_sum":20000}})";
const std::string transactions =
    R"([{"txid":"t","vin":[{"is_coinbase":true}],"vout":[{"scriptpubkey_address":")" + address +
    R"(","value":5}],"status":{"confirmed":true,"block_height":850000}}])";

class WatchedAddressClientTest : public testing::Test {
 protected:
  WatchedAddressClientTest() {
    transport.onEnding(totalsPath).respond(200, totals);
    transport.onEnding(transactionsPath).respond(200, transactions);
    transport.onEnding(tipPath).respond(200, "850000\n");
  }

  Summary summary() { return runTask(executor, client.summary(address)); }
  ScriptedTransport::Script& on(const std::string& path) { return transport.onEnding(path); }

  VirtualExecutor executor;
  ScriptedTransport transport{executor};
  WatchedAddressClient client{transport, "explorer.test:8443"};
};

TEST_F(WatchedAddressClientTest, AsksForThreeDocumentsAtOnceAndJoinsThem) {
  on(totalsPath).respond(200, totals).after(3s);
  on(transactionsPath).respond(200, transactions).after(5s);
  on(tipPath).respond(200, "850000").after(4s);
  const WatchedAddressSummary expected{
      .confirmedSats = 100000,
      .pendingSats = -20000,
      .tipHeight = 850000,
      .incoming = {{.txid = "t", .sats = 5, .isCoinbase = true, .blockHeight = 850000}}};
  EXPECT_EQ(summary(), expected);
  EXPECT_EQ(executor.now(), Instant(5s));
  const std::string urls[]{base + totalsPath, base + transactionsPath, base + tipPath};
  ASSERT_EQ(transport.sent().size(), 3U);
  for (std::size_t index = 0; index < 3; ++index) {
    EXPECT_EQ(transport.sent()[index].request.url, urls[index]);
    EXPECT_EQ(transport.sent()[index].at, Instant());
    EXPECT_TRUE(transport.sent()[index].request.headers.empty());
  }
}

TEST_F(WatchedAddressClientTest, NamesTheFailureOfEachRequest) {
  const auto answer = [](int status, std::string body) {
    return HttpResponse{.status = status, .body = std::move(body)};
  };
  const std::pair<HttpResult, ExplorerError> answers[]{
      {answer(404, totals), {Kind::badServerResponse}},
      {answer(200, "no"), {Kind::decoding}},
      {std::unexpected(HttpFailure::invalidUrl), {Kind::badURL}},
      {std::unexpected(HttpFailure::timedOut), {Kind::transport, HttpFailure::timedOut}},
  };
  for (const std::string& path : {totalsPath, transactionsPath, tipPath}) {
    for (const auto& [result, error] : answers) {
      on(path).respondBy([result](const HttpRequest&) { return result; }).times(1);
      const bool isText = path == tipPath && error.kind == Kind::decoding;
      const ExplorerError expected = isText ? ExplorerError{Kind::cannotParseResponse} : error;
      EXPECT_EQ(summary(), std::unexpected(expected)) << path;
      EXPECT_EQ(transport.inFlight(), 0U);
    }
  }
}

TEST_F(WatchedAddressClientTest, AStalledRequestFailsAfterAMinute) {
  on(transactionsPath).stall();
  EXPECT_EQ(summary().error(), (ExplorerError{Kind::transport, HttpFailure::timedOut}));
  EXPECT_EQ(executor.now(), Instant(60s));
}

TEST_F(WatchedAddressClientTest, ReplacesInvalidTextBeforeItIsParsed) {
  on(tipPath).respond(200, "850000\xff");
  EXPECT_EQ(runTask(executor, client.fetchTipHeightText()), "850000\ufffd");
}

TEST_F(WatchedAddressClientTest, AFailureEndsTheOthersBeforeItIsReported) {
  on(totalsPath).respond(500).after(1s);
  on(transactionsPath).neverAnswer();
  on(tipPath).respond(200, "850000").after(1h);
  EXPECT_EQ(summary().error(), ExplorerError{Kind::badServerResponse});
  EXPECT_EQ(executor.now(), Instant(1s));
  EXPECT_EQ(transport.aborted(), 2U);
}

TEST_F(WatchedAddressClientTest, FailuresCountInTheOrderOfTheRequests) {
  on(totalsPath).respond(404).after(9s).times(1).respond(200, totals).after(9s);
  on(transactionsPath).fail(HttpFailure::cannotFindHost).after(1s);
  on(tipPath).respond(200, "none").times(1).respond(500).after(20s);
  EXPECT_EQ(summary().error(), ExplorerError{Kind::badServerResponse});
  EXPECT_EQ(executor.now(), Instant(9s));
  EXPECT_EQ(summary().error(), (ExplorerError{Kind::transport, HttpFailure::cannotFindHost}));
  EXPECT_EQ(executor.now(), Instant(18s));
  EXPECT_EQ(transport.inFlight(), 0U);
}

TEST_F(WatchedAddressClientTest, CancellingAbortsWhatIsUnderWayAndIsNoFigure) {
  transport.on("/api/").neverAnswer();
  std::optional<Summary> result;
  TaskScope scope(executor);
  const TaskHandle handle = scope.spawn(detail::storeResult(client.summary(address), result));
  executor.runUntilIdle();
  handle.cancel();
  executor.runUntilIdle();
  EXPECT_EQ(result.value().error(), ExplorerError{Kind::cancelled});
  EXPECT_EQ(transport.aborted(), 3U);
}

TEST_F(WatchedAddressClientTest, ADroppedSummaryLeavesNoRequest) {
  transport.on("/api/").neverAnswer();
  std::optional<Summary> result;
  {
    TaskScope scope(executor);
    scope.spawn(detail::storeResult(client.summary(address), result));
    executor.runUntilIdle();
  }
  EXPECT_EQ(transport.aborted(), 3U);
}

TEST_F(WatchedAddressClientTest, EscapesWhatCannotStandInAPath) {
  EXPECT_FALSE(runTask(executor, client.fetchTransactions("a/b?é")));
  EXPECT_EQ(transport.sent()[0].request.url, base + "/address/a%2Fb%3Fé/txs");
}

}  // namespace
}  // namespace orvane::test
