#include <fstream>
#include <memory>
#include <set>
#include <thread>

#include "services/services_client.h"

namespace orvane::test {
namespace {

class LocalServicesTest : public ServicesTest {
 protected:
  int post(const std::string& target, const std::string& body) {
    return control_.Post(target, body, "application/json")->status;
  }

  httplib::Client control_{"http://" + services_.controlHost()};
};

TEST(LocalServicesEndTest, IsQuickThoughConnectionsAreSilentIdleOrUnspoken) {
  auto services = std::make_unique<LocalServices>();
  auto idle = clientOf(*services, Service::explorer);
  idle.set_keep_alive(true);
  EXPECT_TRUE(idle.Get(tipTarget));
  httplib::Client unspoken("http://" + services->host(Service::explorer));
  std::jthread inClear([&] { EXPECT_FALSE(unspoken.Get("/")); });
  services->fault({.service = Service::pool, .kind = FaultKind::silence});
  auto silent = clientOf(*services, Service::pool);
  silent.set_read_timeout(std::chrono::seconds(20));
  std::jthread waiting([&] { EXPECT_FALSE(silent.Get(profileTarget)); });
  while (services->requests(Service::pool).empty()) {
    std::this_thread::yield();
  }
  const auto begin = std::chrono::steady_clock::now();
  services.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3));
}

TEST_F(LocalServicesTest, LinesOfTheLogTellWhatWasSentAndHowItWasAnswered) {
  clientOf(services_, Service::pool).Get(profileTarget, {{"X-Twice", "1"}, {"X-Twice", "\xff"}});
  services_.fault({.service = Service::price, .kind = FaultKind::hangUp});
  EXPECT_FALSE(get(Service::price, priceTarget));
  EXPECT_EQ(get(Service::pool, "/")->status, 404);

  std::ifstream file(services_.caFile().parent_path() / "requests.log");
  std::vector<json> lines;
  for (std::string line; std::getline(file, line);) {
    lines.push_back(json::parse(line));
  }
  const json list = json::parse(control_.Get("/requests")->body);
  EXPECT_EQ(list, json(lines));
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(list[0]["path"], profileTarget);
  EXPECT_EQ(list[0]["status"], 401);
  std::multiset<std::string> names;
  for (const json& header : list[0]["headers"]) {
    names.insert(header["name"]);
  }
  EXPECT_EQ(names.count("X-Twice"), 2U);
  EXPECT_EQ(list[1]["fault"], "hang-up");
  EXPECT_EQ(list[1]["status"], 0) << "nothing was sent";
  EXPECT_FALSE(list[0].contains("sincePrevious") || list[1].contains("sincePrevious"));
  EXPECT_DOUBLE_EQ(list[2]["sincePrevious"],
                   list[2]["monotonic"].get<double>() - list[0]["monotonic"].get<double>());
}

TEST_F(LocalServicesTest, AFaultHitsSoManyRequestsOfItsServiceAndPath) {
  services_.fault({.service = Service::explorer, .path = "/txs", .count = 2, .status = 429});
  for (const auto& [suffix, status] : {std::pair("", 200), std::pair("/txs", 429),
                                       std::pair("/txs", 429), std::pair("/txs", 200)}) {
    EXPECT_EQ(get(Service::explorer, sampleTarget + suffix)->status, status);
  }
  EXPECT_EQ(post("/fault", R"({"service": "price", "kind": "status", "status": 503})"), 200);
  EXPECT_EQ(get(Service::price, priceTarget)->status, 503);
  EXPECT_EQ(get(Service::explorer, tipTarget)->status, 200) << "of another service";
  EXPECT_EQ(control_.Delete("/faults")->status, 200);
  EXPECT_EQ(get(Service::price, priceTarget)->status, 200);
}

TEST_F(LocalServicesTest, FaultsOfTheContentSpoilIt) {
  for (const FaultKind kind : {FaultKind::garbage, FaultKind::truncatedJson}) {
    services_.fault({.service = Service::price, .kind = kind, .count = 1});
    EXPECT_TRUE(at(Service::price, priceTarget).is_discarded());
  }
  services_.fault({.service = Service::explorer, .kind = FaultKind::tipLag, .blocks = 5});
  EXPECT_EQ(at(Service::explorer, tipTarget), 976'395);
  EXPECT_TRUE(at(Service::explorer, sampleTarget + "/txs").is_array());
}

TEST_F(LocalServicesTest, RedirectLeadsToTheOtherOriginWhichAnswersEverything) {
  services_.fault({.service = Service::pool, .kind = FaultKind::redirect});
  const auto result = clientOf(services_, Service::pool).Get(profileTarget);
  EXPECT_EQ(result->status, 302);
  EXPECT_EQ(result->get_header_value("Location"),
            "https://" + services_.host(Service::other) + profileTarget);
  EXPECT_EQ(get(Service::other, profileTarget, "")->status, 200);
  EXPECT_EQ(at(Service::other, tipTarget), 976'400);
}

TEST_F(LocalServicesTest, TimeBlocksAndPaymentsMoveTheScenario) {
  const std::size_t before = at(Service::explorer, sampleTarget + "/txs").size();
  const std::string other = R"({"sats": 5, "address": "bc1qsecondaddressn0b0dyelsew0uldpay00000"})";
  for (const auto& [target, body, tip, added] :
       {std::tuple("/scenario", R"({"advance": 480})", 976'402, 0U),
        std::tuple("/block", "", 976'403, 0U), std::tuple("/pay", R"({"sats": 5})", 976'403, 1U),
        std::tuple("/pay", other.c_str(), 976'403, 1U),
        std::tuple("/pay", R"({"sats": 312500000, "coinbase": true})", 976'404, 2U)}) {
    EXPECT_EQ(post(target, body), 200);
    EXPECT_EQ(at(Service::explorer, tipTarget), tip) << body;
    EXPECT_EQ(at(Service::explorer, sampleTarget + "/txs").size(), before + added) << body;
  }
}

TEST_F(LocalServicesTest, MisspeltControlRequestsAreRefused) {
  for (const auto& [target, body] :
       {std::pair("/fault", "[]"), std::pair("/fault", R"({"service": "pool"})"),
        std::pair("/fault", R"({"service": "pol", "kind": "status"})"),
        std::pair("/fault", R"({"service": "pool", "kind": "status", "status": "500"})"),
        std::pair("/fault", R"({"service": "pool", "kind": "status", "count": 0})"),
        std::pair("/fault", R"({"service": "pool", "kind": "status", "statsu": 500})"),
        std::pair("/pay", R"({"sats": 18446744073709551615})"), std::pair("/scenario", "{}")}) {
    EXPECT_EQ(post(target, body), 400) << target << ' ' << body;
  }
}

}  // namespace
}  // namespace orvane::test
