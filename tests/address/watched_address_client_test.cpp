#include "address/watched_address_client.h"

#include <chrono>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "explorer_texts.h"
#include "support/run_task.h"
#include "support/scripted_transport.h"
#include "support/virtual_executor.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using Kind = ExplorerError::Kind;
using Summary = std::expected<WatchedAddressSummary, ExplorerError>;

const std::string base = "https://explorer.test:8443/api";
const std::string totalsPath = "/address/" + watchedAddress;
const std::string transactionsPath = totalsPath + "/txs";
const std::string tipPath = "/blocks/tip/height";

class WatchedAddressClientTest : public testing::Test {
 protected:
  WatchedAddressClientTest() {
    transport.onEnding(totalsPath).respond(200, totalsText(150000, 50000));
    transport.onEnding(transactionsPath).respond(200, "[]");
    transport.onEnding(tipPath).respond(200, "850000\n");
  }

  Summary summary() { return runTask(executor, client.summary(watchedAddress)); }
  std::optional<ExplorerError> failure() {
    const Summary result = summary();
    return result ? std::nullopt : std::optional(result.error());
  }
  ScriptedTransport::Script& on(const std::string& path) { return transport.onEnding(path); }

  VirtualExecutor executor;
  ScriptedTransport transport{executor};
  WatchedAddressClient client{transport, "explorer.test:8443"};
};

TEST_F(WatchedAddressClientTest, AsksForThreeDocumentsAtOnceAndJoinsThem) {
  on(totalsPath).respond(200, totalsText(150000, 50000)).after(3s);
  on(transactionsPath)
      .respond(200, "[" + TransactionText("t").paying(watchedAddress, 5).coinbase().json() + "]")
      .after(5s);
  on(tipPath).respond(200, "850000").after(4s);
  const WatchedAddressSummary expected{
      .confirmedSats = 100000,
      .pendingSats = -20000,
      .tipHeight = 850000,
      .incoming = {{.txid = "t", .sats = 5, .isCoinbase = true, .blockHeight = 850000}}};
  EXPECT_EQ(summary(), expected);
  EXPECT_EQ(executor.now(), Instant(5s));
  const std::vector<std::string> urls{base + totalsPath, base + transactionsPath, base + tipPath};
  ASSERT_EQ(transport.sent().size(), urls.size());
  for (std::size_t index = 0; index < urls.size(); ++index) {
    EXPECT_EQ(transport.sent()[index].request.url, urls[index]);
    EXPECT_EQ(transport.sent()[index].at, Instant());
    EXPECT_TRUE(transport.sent()[index].request.headers.empty());
  }
}

HttpResult answer(int status, std::string body = {}) {
  return HttpResponse{.status = status, .body = std::move(body)};
}

TEST_F(WatchedAddressClientTest, NamesTheFailureOfEachRequest) {
  const std::vector<std::pair<HttpResult, ExplorerError>> answers{
      {answer(199), {Kind::badServerResponse}},
      {answer(300), {Kind::badServerResponse}},
      {answer(404), {Kind::badServerResponse}},
      {answer(500), {Kind::badServerResponse}},
      {answer(299, "no"), {Kind::decoding}},
      {answer(204), {Kind::decoding}},
      {std::unexpected(HttpFailure::invalidUrl), {Kind::badURL}},
      {std::unexpected(HttpFailure::cancelled), {Kind::cancelled}},
      {std::unexpected(HttpFailure::timedOut), {Kind::transport, HttpFailure::timedOut}},
      {std::unexpected(HttpFailure::other), {Kind::transport, HttpFailure::other}},
  };
  for (const std::string& path : {totalsPath, transactionsPath, tipPath}) {
    for (const auto& [result, error] : answers) {
      on(path).respondBy([result](const HttpRequest&) { return result; }).times(1);
      const bool isText = path == tipPath && error.kind == Kind::decoding;
      const ExplorerError expected = isText ? ExplorerError{Kind::cannotParseResponse} : error;
      EXPECT_EQ(failure(), expected) << path;
      EXPECT_EQ(transport.inFlight(), 0U);
    }
  }
}

TEST_F(WatchedAddressClientTest, ReplacesInvalidTextBeforeItIsParsed) {
  on(tipPath).respond(200, "850000\xff");
  EXPECT_EQ(runTask(executor, client.fetchTipHeightText()), "850000\ufffd");
  EXPECT_EQ(failure(), ExplorerError{Kind::cannotParseResponse});
}

TEST_F(WatchedAddressClientTest, AFailureEndsTheOthersBeforeItIsReported) {
  on(totalsPath).respond(500).after(1s);
  on(transactionsPath).neverAnswer();
  on(tipPath).respond(200, "850000").after(1h);
  EXPECT_EQ(failure(), ExplorerError{Kind::badServerResponse});
  EXPECT_EQ(executor.now(), Instant(1s));
  EXPECT_EQ(transport.inFlight(), 0U);
  EXPECT_EQ(transport.aborted(), 2U);
  EXPECT_EQ(executor.pendingTimers(), 0U);
}

TEST_F(WatchedAddressClientTest, FailuresCountInTheOrderOfTheRequests) {
  on(totalsPath).respond(404).after(9s);
  on(transactionsPath).fail(HttpFailure::timedOut).after(1s);
  on(tipPath).respond(200, "none");
  EXPECT_EQ(failure(), ExplorerError{Kind::badServerResponse});
  EXPECT_EQ(executor.now(), Instant(9s));

  on(totalsPath).respond(200, totalsText(1, 1)).after(9s);
  on(tipPath).respond(500).after(20s);
  const ExplorerError timedOut{.kind = Kind::transport, .failure = HttpFailure::timedOut};
  EXPECT_EQ(failure(), timedOut);
  EXPECT_EQ(executor.now(), Instant(18s));
  EXPECT_EQ(transport.inFlight(), 0U);
}

TEST_F(WatchedAddressClientTest, CancellingAbortsWhatIsUnderWayAndIsNoFigure) {
  std::size_t aborted = 0;
  for (const auto& [path, underWay] : {std::pair{"/txs", 1U}, std::pair{"/api/", 3U}}) {
    transport.on(path).neverAnswer();
    std::optional<Summary> result;
    TaskScope scope(executor);
    const TaskHandle handle =
        scope.spawn(detail::storeResult(client.summary(watchedAddress), result));
    executor.runUntilIdle();
    handle.cancel();
    EXPECT_EQ(transport.inFlight(), 0U);
    executor.runUntilIdle();
    EXPECT_EQ(result.value().error(), ExplorerError{Kind::cancelled});
    EXPECT_EQ(transport.aborted(), aborted += underWay);
  }
}

TEST_F(WatchedAddressClientTest, DroppedSummariesLeaveNoRequest) {
  transport.on("/api/").neverAnswer();
  std::optional<Summary> result;
  {
    TaskScope scope(executor);
    scope.spawn(detail::storeResult(client.summary(watchedAddress), result));
    executor.runUntilIdle();
  }
  executor.runUntilIdle();
  EXPECT_FALSE(result);
  EXPECT_EQ(transport.aborted(), 3U);
}

TEST_F(WatchedAddressClientTest, EscapesWhatCannotStandInAPath) {
  const auto answer = runTask(executor, client.fetchTransactions("a/b?é"));
  EXPECT_EQ(answer.error(), ExplorerError{Kind::badServerResponse});
  EXPECT_EQ(transport.sent()[0].request.url, base + "/address/a%2Fb%3Fé/txs");
}

}  // namespace
}  // namespace orvane::test
