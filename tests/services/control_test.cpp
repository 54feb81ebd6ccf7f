#include <gtest/gtest.h>

#include "services/services_client.h"

namespace orvane::test {
namespace {

class ControlTest : public ::testing::Test {
 protected:
  int post(const std::string& target, const std::string& body) {
    const auto result = control_.Post(target, body, "application/json");
    return result ? result->status : 0;
  }
  std::string tip() { return clientOf(services_, Service::explorer).Get(tipTarget)->body; }
  std::size_t transactionCount(const std::string& address) {
    return documentAt(services_, Service::explorer, "/api/address/" + address + "/txs").size();
  }

  LocalServices services_;
  httplib::Client control_{"http://" + services_.controlHost()};
};

TEST_F(ControlTest, FaultsAreSetAndClearedAndRequestsListed) {
  EXPECT_EQ(post("/fault", R"({"service": "explorer", "kind": "status", "status": 503})"), 200);
  EXPECT_EQ(clientOf(services_, Service::explorer).Get(tipTarget)->status, 503);
  EXPECT_EQ(control_.Delete("/faults")->status, 200);
  EXPECT_EQ(tip(), "976400");
  const auto list = nlohmann::json::parse(control_.Get("/requests")->body);
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list[0]["path"], tipTarget);
}

TEST_F(ControlTest, TimeBlocksAndPaymentsMoveTheScenario) {
  const std::string sample{services::sampleAddress};
  const std::string second = services::inventedAddress(12'345'678);
  EXPECT_EQ(post("/scenario", R"({"advance": 480})"), 200);
  EXPECT_EQ(post("/block", ""), 200);
  EXPECT_EQ(tip(), "976403");
  const auto before = transactionCount(sample);
  EXPECT_EQ(post("/pay", R"({"sats": 5})"), 200);
  EXPECT_EQ(post("/pay", R"({"sats": 5, "address": ")" + second + R"("})"), 200);
  EXPECT_EQ(transactionCount(sample), before + 1);
  EXPECT_EQ(transactionCount(second), 1U);
  EXPECT_EQ(post("/pay", R"({"sats": 312500000, "coinbase": true})"), 200);
  EXPECT_EQ(tip(), "976404");
}

TEST_F(ControlTest, MisspeltRequestsAreRefused) {
  for (const char* const body :
       {"", "[]", R"({"service": "pool"})", R"({"service": "pol", "kind": "status"})",
        R"({"service": "pool", "kind": "teapot"})",
        R"({"service": "pool", "kind": "status", "status": 42})",
        R"({"service": "pool", "kind": "status", "status": "500"})",
        R"({"service": "pool", "kind": "status", "count": 0})",
        R"({"service": "pool", "kind": "status", "delay": -1})",
        R"({"service": "pool", "kind": "status", "statsu": 500})"}) {
    EXPECT_EQ(post("/fault", body), 400) << body;
  }
  EXPECT_EQ(post("/pay", R"({"sats": 18446744073709551615})"), 400);
  EXPECT_EQ(post("/scenario", R"({})"), 400);
  EXPECT_EQ(post("/faults", ""), 404);
}

}  // namespace
}  // namespace orvane::test
