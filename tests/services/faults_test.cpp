
#include <gtest/gtest.h>

#include "services/services_client.h"

namespace orvane::test {
namespace {

class FaultsTest : public ::testing::Test {
 protected:
  httplib::Result get(const std::string& target = tipTarget) { return client_.Get(target); }

  LocalServices services_;
  httplib::Client client_ = clientOf(services_, Service::explorer);
};

TEST_F(FaultsTest, AStatusHitsSoManyRequestsOfItsServiceAndPath) {
  services_.fault({.service = Service::explorer, .path = "/txs", .count = 2, .status = 429});
  const std::string address = "/api/address/" + std::string(services::sampleAddress);
  EXPECT_EQ(get(address)->status, 200);
  EXPECT_EQ(get(address + "/txs")->status, 429);
  EXPECT_EQ(get(address + "/txs")->status, 429);
  EXPECT_EQ(get(address + "/txs")->status, 200);
  services_.fault({.service = Service::explorer});
  EXPECT_FALSE(documentAt(services_, Service::price, priceTarget).is_discarded());
}

TEST_F(FaultsTest, SpoiledDocumentsDoNotParse) {
  for (const FaultKind kind : {FaultKind::garbage, FaultKind::truncatedJson}) {
    services_.fault({.service = Service::price, .kind = kind, .count = 1});
    EXPECT_TRUE(documentAt(services_, Service::price, priceTarget).is_discarded());
    EXPECT_FALSE(documentAt(services_, Service::price, priceTarget).is_discarded());
  }
}

TEST_F(FaultsTest, RedirectLeadsToTheOtherOriginWhichAnswersEverything) {
  services_.fault({.service = Service::pool, .kind = FaultKind::redirect});
  const auto result = clientOf(services_, Service::pool).Get(profileTarget, sampleTokenHeader());
  EXPECT_EQ(result->status, 302);
  EXPECT_EQ(result->get_header_value("Location"),
            "https://" + services_.host(Service::other) + profileTarget);
  EXPECT_TRUE(documentAt(services_, Service::other, profileTarget).contains("btc"));
  EXPECT_EQ(documentAt(services_, Service::other, tipTarget), 976'400);
}

TEST_F(FaultsTest, LaggingTipIsLowerWhileTheRestStays) {
  services_.fault({.service = Service::explorer, .kind = FaultKind::tipLag, .blocks = 5});
  EXPECT_EQ(get()->body, "976395");
  const auto target = "/api/address/" + std::string(services::sampleAddress) + "/txs";
  EXPECT_TRUE(documentAt(services_, Service::explorer, target).is_array());
}

}  // namespace
}  // namespace orvane::test
