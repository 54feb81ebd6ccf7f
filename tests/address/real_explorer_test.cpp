// The summary over real HTTPS requests to an explorer whose chain grows and pays.

#include <algorithm>
#include <chrono>
#include <string>

#include <gtest/gtest.h>

#include "address/watched_address_client.h"
#include "platform/eventloop/real_time.h"
#include "platform/http/qt_http_transport.h"
#include "services/local_services.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using services::FaultKind;
using services::LocalServices;
using services::Service;
using Kind = ExplorerError::Kind;

const std::string address{services::sampleAddress};
const std::string tipPath = "/blocks/tip/height";

class RealExplorerTest : public RealTimeTest {
 protected:
  auto ask() { return run(client.summary(address)); }
  Kind failureWith(FaultKind kind, const std::string& path) {
    // For every request, as one that was cancelled may still arrive and take a single fault away.
    local.fault({.service = Service::explorer, .kind = kind, .path = path});
    const auto result = ask();
    local.clearFaults();
    EXPECT_FALSE(result) << path;
    return result ? Kind::cancelled : result.error().kind;
  }

  LocalServices local;
  QtHttpTransport transport{{.extraCaFile = local.caFile()}};
  WatchedAddressClient client{transport, local.host(Service::explorer)};
};

TEST_F(RealExplorerTest, FollowsAPaymentAndABlockReward) {
  const WatchedAddressSummary before = ask().value();
  EXPECT_TRUE(std::ranges::any_of(before.incoming, &WatchedAddressTransaction::isCoinbase));

  local.pay(12345);
  const WatchedAddressSummary paid = ask().value();
  ASSERT_EQ(paid.incoming.size(), before.incoming.size() + 1);
  EXPECT_EQ(paid.pendingSats, before.pendingSats + 12345);
  EXPECT_EQ(paid.incoming[0].sats, 12345);
  EXPECT_EQ(paid.incoming[0].blockHeight, std::nullopt);

  local.payBlockReward(312'500'000);
  const WatchedAddressSummary rewarded = ask().value();
  EXPECT_EQ(rewarded.tipHeight, paid.tipHeight + 1);
  const auto reward =
      std::ranges::find(rewarded.incoming, 312'500'000, &WatchedAddressTransaction::sats);
  ASSERT_NE(reward, rewarded.incoming.end());
  EXPECT_TRUE(reward->isCoinbase);
  EXPECT_EQ(confirmations(rewarded.tipHeight, reward->blockHeight), 1);
}

TEST_F(RealExplorerTest, NamesTheFailureOfEachRequest) {
  for (const std::string& path : {address, std::string("/txs"), tipPath}) {
    EXPECT_EQ(failureWith(FaultKind::status, path), Kind::badServerResponse);
    EXPECT_EQ(failureWith(FaultKind::drop, path), Kind::transport);
    EXPECT_EQ(failureWith(FaultKind::garbage, path),
              path == tipPath ? Kind::cannotParseResponse : Kind::decoding);
  }
  local.fault({.service = Service::explorer, .kind = FaultKind::refuse});
  EXPECT_EQ(ask().error(),
            (ExplorerError{.kind = Kind::transport, .failure = HttpFailure::cannotConnectToHost}));
  local.clearFaults();
  EXPECT_TRUE(ask());
}

TEST_F(RealExplorerTest, AFailureDoesNotWaitForTheOthers) {
  local.fault({.service = Service::explorer, .kind = FaultKind::silence, .path = "/txs"});
  local.fault({.service = Service::explorer, .kind = FaultKind::silence, .path = tipPath});
  local.fault({.service = Service::explorer, .kind = FaultKind::status, .path = address});
  const auto time = timeOf([this] { EXPECT_EQ(ask().error().kind, Kind::badServerResponse); });
  EXPECT_LT(time, 15s);
}

TEST_F(RealExplorerTest, CostsThreeRequests) {
  EXPECT_TRUE(ask());
  EXPECT_EQ(local.requests(Service::explorer).size(), 3U);
}

}  // namespace
}  // namespace orvane::test
