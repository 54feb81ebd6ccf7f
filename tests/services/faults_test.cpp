
#include <gtest/gtest.h>

#include "services/services_client.h"

namespace orvane::test {
namespace {

using std::chrono::milliseconds;

class FaultsTest : public ::testing::Test {
 protected:
  httplib::Result get(const std::string& target = tipTarget) { return client_.Get(target); }

  void expect(FaultKind kind, int count = 1) {
    services_.fault({.service = Service::explorer, .kind = kind, .count = count});
  }

  LocalServices services_;
  httplib::Client client_ = clientOf(services_, Service::explorer);
};

TEST_F(FaultsTest, StatusTakesThePlaceOfTheAnswerForSoManyRequests) {
  for (const int status : {204, 401, 403, 404, 429, 500}) {
    services_.fault({.service = Service::explorer, .count = 2, .status = status});
    EXPECT_EQ(get()->status, status);
    EXPECT_EQ(get()->status, status);
    EXPECT_EQ(get()->body, "976400") << "after " << status;
  }
}

TEST_F(FaultsTest, FaultHitsOnlyItsServiceAndPath) {
  services_.fault({.service = Service::explorer, .path = "/txs"});
  const std::string address = "/api/address/" + std::string(services::sampleAddress);
  EXPECT_EQ(get()->status, 200);
  EXPECT_EQ(get(address)->status, 200);
  EXPECT_EQ(get(address + "/txs")->status, 500);
  EXPECT_FALSE(documentAt(services_, Service::price, priceTarget).is_discarded());
  services_.clearFaults();
  EXPECT_EQ(get(address + "/txs")->status, 200);
}

TEST_F(FaultsTest, SilenceLastsUntilTheClientGivesUp) {
  expect(FaultKind::silence);
  client_.set_read_timeout(milliseconds(200));
  EXPECT_EQ(get().error(), httplib::Error::Read);
  EXPECT_EQ(get()->status, 200);
}

TEST_F(FaultsTest, DroppedBodyIsAnErrorAndNoShortAnswer) {
  expect(FaultKind::drop);
  EXPECT_EQ(get().error(), httplib::Error::Read);
}

TEST_F(FaultsTest, HangUpSendsNoByte) {
  expect(FaultKind::hangUp);
  EXPECT_EQ(get().error(), httplib::Error::Read);
  EXPECT_EQ(services_.requests().front().status, 0);
}

TEST_F(FaultsTest, SpoiledDocumentsDoNotParse) {
  for (const FaultKind kind : {FaultKind::garbage, FaultKind::truncatedJson}) {
    services_.fault({.service = Service::price, .kind = kind});
    const auto result = clientOf(services_, Service::price).Get(priceTarget);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->status, 200);
    EXPECT_TRUE(nlohmann::json::parse(result->body, nullptr, false).is_discarded());
    services_.clearFaults();
  }
}

TEST_F(FaultsTest, RedirectLeadsToTheOtherOriginWhichAnswersAndLogsWhatItSaw) {
  services_.fault({.service = Service::pool, .kind = FaultKind::redirect});
  const auto result = clientOf(services_, Service::pool).Get(profileTarget, sampleTokenHeader());
  EXPECT_EQ(result->status, 302);
  const std::string location = result->get_header_value("Location");
  EXPECT_EQ(location, "https://" + services_.host(Service::other) + profileTarget);

  auto other = clientOf(services_, Service::other);
  EXPECT_TRUE(nlohmann::json::parse(other.Get(profileTarget)->body).contains("btc"));
  EXPECT_EQ(other.Get(tipTarget)->body, "976400");
  EXPECT_EQ(services_.requests(Service::other).size(), 2U);
}

TEST_F(FaultsTest, RedirectWithinTheOriginLeadsToTheRightAnswer) {
  services_.fault({.service = Service::explorer, .kind = FaultKind::redirectWithin});
  client_.set_follow_location(true);
  EXPECT_EQ(get()->body, "976400");
  EXPECT_EQ(services_.requests().back().target, std::string("/moved") + tipTarget);
}

TEST_F(FaultsTest, SlowBodyArrivesWholeByteForByte) {
  services_.fault(
      {.service = Service::explorer, .kind = FaultKind::slow, .interval = milliseconds(20)});
  client_.set_read_timeout(milliseconds(500));
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(get()->body, "976400");
  EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(6 * 20));
}

TEST_F(FaultsTest, HugeBodyHasNoEnd) {
  expect(FaultKind::huge);
  constexpr std::size_t enough = 40'000'000;
  std::size_t received = 0;
  const auto result = client_.Get(tipTarget, [&](const char*, std::size_t count) {
    received += count;
    return received < enough;
  });
  EXPECT_EQ(result.error(), httplib::Error::Canceled);
  EXPECT_GE(received, enough);
}

TEST_F(FaultsTest, DelayedAnswerIsLateButRight) {
  services_.fault({.service = Service::explorer,
                   .kind = FaultKind::delay,
                   .count = 1,
                   .delay = milliseconds(50)});
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(get()->body, "976400");
  EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(50));
}

TEST_F(FaultsTest, LaggingTipIsLowerWhileTheRestStays) {
  services_.fault({.service = Service::explorer, .kind = FaultKind::tipLag, .blocks = 5});
  EXPECT_EQ(get()->body, "976395");
  const auto list = get("/api/address/" + std::string(services::sampleAddress) + "/txs");
  EXPECT_TRUE(nlohmann::json::parse(list->body, nullptr, false).is_array());
}

TEST_F(FaultsTest, RefusedServiceComesBackOnItsPort) {
  EXPECT_EQ(get()->status, 200);
  expect(FaultKind::refuse);
  EXPECT_EQ(get().error(), httplib::Error::Connection);
  services_.clearFaults();
  EXPECT_EQ(get()->status, 200);
}

TEST_F(FaultsTest, RefusalEndsKeptConnectionsToo) {
  client_.set_keep_alive(true);
  EXPECT_EQ(get()->status, 200);
  expect(FaultKind::refuse);
  EXPECT_FALSE(get());
}

}  // namespace
}  // namespace orvane::test
