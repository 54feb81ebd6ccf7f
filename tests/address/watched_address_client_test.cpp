#include "address/watched_address_client.h"
#include <gmock/gmock.h>
#include "support/run_task.h"
#include "support/scripted_transport.h"

namespace orvane::test { namespace {

using namespace std::chrono_literals;
using Kind = ExplorerError::Kind;

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

  ExplorerResult<WatchedAddressSummary> summary() {
    return runTask(executor, client.summary(address));
  }
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
  EXPECT_EQ(executor.now(), Instant(5s)) << "one waits for the other";
  std::vector<std::string> urls;
  for (const ScriptedTransport::Sent& sent : transport.sent()) {
    urls.push_back(sent.request.url);
    EXPECT_TRUE(sent.request.headers.empty());
  }
  EXPECT_THAT(urls,
              testing::ElementsAre(base + totalsPath, base + transactionsPath, base + tipPath));
}

TEST_F(WatchedAddressClientTest, NamesTheFailureOfEachRequest) {
  const ExplorerError refused{Kind::badServerResponse};
  const ExplorerError timedOut{Kind::transport, HttpFailure::timedOut};
  for (const std::string& path : {totalsPath, transactionsPath, tipPath}) {
    on(path).respond(404, totals).times(1).fail(HttpFailure::invalidUrl).times(1);
    EXPECT_EQ(summary().error(), refused) << path;
    EXPECT_EQ(summary().error(), ExplorerError{Kind::badURL}) << path;
    on(path).respond(200, "no").times(1).stall().times(1);
    EXPECT_EQ(summary().error().kind, path == tipPath ? Kind::cannotParseResponse : Kind::decoding);
    const Instant before = executor.now();
    EXPECT_EQ(summary().error(), timedOut) << path;
    EXPECT_EQ(executor.now() - before, 60s) << path;
  }
}

TEST_F(WatchedAddressClientTest, TakesNoIdThatIsLongerThanTwoHashes) {
  const auto listed = [this](std::size_t length) {
    std::string body = transactions;
    body.replace(body.find("\"t\""), 3, '"' + std::string(length, 'f') + '"');
    on(transactionsPath).respond(200, body);
    return summary();
  };
  EXPECT_TRUE(listed(128).has_value());
  EXPECT_EQ(listed(129).error(), ExplorerError{Kind::decoding});
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
  std::optional<ExplorerResult<WatchedAddressSummary>> result;
  TaskScope scope(executor);
  const TaskHandle handle = scope.spawn(detail::storeResult(client.summary(address), result));
  executor.runUntilIdle();
  handle.cancel();
  executor.runUntilIdle();
  EXPECT_EQ(result.value().error(), ExplorerError{Kind::cancelled});
  EXPECT_EQ(transport.aborted(), 3U);
}

}}  // namespace orvane::test
