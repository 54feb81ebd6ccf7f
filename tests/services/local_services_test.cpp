#include "services/local_services.h"
#include <set>
#include <gmock/gmock.h>
#include <httplib.h>
#include <nlohmann/json.hpp>

namespace orvane::test { namespace {

using namespace std::chrono_literals;
using nlohmann::json;
using services::Chain;
using services::FaultKind;
using services::LocalServices;
using services::Service;

constexpr auto profileTarget = "/accounts/profile/json/btc/";
constexpr auto workersTarget = "/accounts/workers/json/btc/";
constexpr auto tipTarget = "/api/blocks/tip/height";
constexpr auto priceTarget = "/api/v3/simple/price?ids=bitcoin&vs_currencies=eur,usd";
const std::string sampleTarget = "/api/address/" + std::string(services::sampleAddress);

/// An HTTPS client that knows no certificate authority but the services' own.
httplib::Client clientOf(const LocalServices& services, Service service) {
  httplib::Client client("https://" + services.host(service));
  client.set_ca_cert_path(services.caFile());
  client.enable_server_certificate_verification(true);
  client.set_url_encode(false);  // targets hold to the character
  return client;
}

/// The services in a calendar of their own, so that no test depends on the day it runs on.
class LocalServicesTest : public testing::Test {
 protected:
  httplib::Result get(Service service, const std::string& target,
                      const std::string& token = std::string(services::sampleToken)) {
    return clientOf(services_, service).Get(target, {{"Pool-Auth-Token", token}});
  }
  /// The document that was answered; discarded where it is none.
  json at(Service service, const std::string& target) {
    const auto result = get(service, target);
    return json::parse(result ? result->body : "", nullptr, false);
  }
  int post(const std::string& target, const std::string& body) {
    return control_.Post(target, body, "application/json")->status;
  }

  LocalServices services_{{.start = std::chrono::sys_days(std::chrono::year(2026) / 11 / 16)}};
  httplib::Client control_{"http://" + services_.controlHost()};
};

TEST(LocalServicesEndTest, IsQuickThoughAConnectionIsSilent) {
  std::optional<LocalServices> services(std::in_place);
  services->fault({.service = Service::pool, .kind = FaultKind::silence});
  auto silent = clientOf(*services, Service::pool);
  silent.set_read_timeout(20s);
  std::jthread waiting([&] { EXPECT_FALSE(silent.Get(profileTarget)); });
  while (services->requests(Service::pool).empty()) {
    std::this_thread::yield();
  }
  const auto begin = std::chrono::steady_clock::now();
  services.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 3s);
}

TEST_F(LocalServicesTest, LinesOfTheLogTellWhatWasSentAndHowItWasAnswered) {
  clientOf(services_, Service::pool).Get(profileTarget, {{"X-No-Text", "\xff"}});
  services_.fault({.service = Service::price, .kind = FaultKind::hangUp});
  EXPECT_FALSE(get(Service::price, priceTarget));
  EXPECT_EQ(get(Service::pool, "/")->status, 404);

  std::ifstream file(services_.caFile().parent_path() / "requests.log");
  const json list = json::parse(control_.Get("/requests")->body);
  ASSERT_EQ(list.size(), 3U);
  for (const json& entry : list) {
    std::string line;
    EXPECT_TRUE(std::getline(file, line) && json::parse(line) == entry) << line;
  }
  EXPECT_EQ(list[0]["path"], profileTarget);
  EXPECT_EQ(list[0]["status"], 401);
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
  const char* other = R"({"sats": 5, "address": "bc1qsecondaddressn0b0dyelsew0uldpay00000"})";
  for (const auto& [target, body, tip, added] :
       {std::tuple("/scenario", R"({"advance": 480})", 976'402, 0U),
        std::tuple("/block", "", 976'403, 0U), std::tuple("/pay", R"({"sats": 5})", 976'403, 1U),
        std::tuple("/pay", other, 976'403, 1U),
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

TEST_F(LocalServicesTest, WorkersShowEveryStateAndUnit) {
  std::set<std::string> words;
  const json document = at(Service::pool, workersTarget);
  for (const json& worker : document["btc"]["workers"]) {
    words.insert(worker.value("state", "none"));
    words.insert(worker.value("hash_rate_unit", "none"));
  }
  EXPECT_THAT(words, testing::UnorderedElementsAre("ok", "low", "off", "dis", "unknown", "none",
                                                   "Mh/s", "Gh/s", "Th/s", "Ph/s"));
}

TEST_F(LocalServicesTest, OneWorkerGoesLowThenOffThenComesBack) {
  // As a client sees it whose refresh, of two requests a minute apart, comes after five minutes.
  services_.advance(60s);
  for (const char* const state : {"ok", "low", "off", "off", "ok", "ok", "low"}) {
    const json workers = at(Service::pool, workersTarget)["btc"]["workers"];
    EXPECT_EQ(workers["larkspur.attic-s9"]["state"], state);
    services_.advance(6min);
  }
}

TEST_F(LocalServicesTest, PricesOfBothSourcesAreTheSame) {
  const json price = at(Service::price, priceTarget)["bitcoin"]["eur"];
  const json rates = at(Service::fallback, "/v2/exchange-rates?currency=BTC")["data"]["rates"];
  EXPECT_NEAR(std::stod(rates["EUR"].get<std::string>()), price.get<double>(), 50);
}

TEST_F(LocalServicesTest, RewardsAreThoseOfTheDaysAskedFor) {
  const std::string target = "/accounts/rewards/json/btc?from=";
  const json year = at(Service::pool, target + "2000-01-01&to=2026-11-16")["btc"]["daily_rewards"];
  EXPECT_GT(year.size(), 300U);
  EXPECT_EQ(year.back()["date"], 1'794'700'800);  // 2026-11-15
  const json week = at(Service::pool, target + "2026-11-08&to=2026-11-14")["btc"]["daily_rewards"];
  EXPECT_LE(week.size(), 7U);
  EXPECT_EQ(week.back()["date"], 1'794'614'400);
}

TEST_F(LocalServicesTest, WhatIsNotAskedForToTheCharacterIsRefused) {
  EXPECT_EQ(get(Service::pool, profileTarget, "wrong")->status, 401);
  for (const auto& [service, target, status] :
       {std::tuple(Service::pool, "/accounts/profile/json/btc", 404),
        std::tuple(Service::pool, "/accounts/rewards/json/btc?from=2000-01-01&to=2026-02-30", 400),
        std::tuple(Service::pool, "/accounts/rewards/json/btc?to=2026-11-16&from=2000-01-01", 400),
        std::tuple(Service::explorer, "/api/address/short", 400),
        std::tuple(Service::price, "/api/v3/simple/price?ids=bitcoin&vs_currencies=eur%2Cusd", 404),
        std::tuple(Service::fallback, "/v2/exchange-rates", 404)}) {
    EXPECT_EQ(get(service, target)->status, status) << target;
  }
}

TEST_F(LocalServicesTest, ExplorerTotalsAreThoseOfItsTransactions) {
  const json totals = at(Service::explorer, sampleTarget);
  EXPECT_EQ(totals["chain_stats"]["funded_txo_sum"], 787'640);
  EXPECT_EQ(totals["chain_stats"]["spent_txo_sum"], 150'000 + 98'700);
  EXPECT_EQ(totals["mempool_stats"]["funded_txo_sum"], 12'345 + 31'250);
}

TEST(ChainTest, HistoryHasRewardsAtEveryDepthThatMatters) {
  std::set<std::int64_t> depths;
  const Chain chain({.address = "bc1qsample", .paymentAfter = {}, .rewardAfter = {}});
  for (const services::ChainTransaction& each : chain.transactionsOf("bc1qsample")) {
    if (!each.inputs.front().isCoinbase) { continue; }
    depths.insert(each.blockHeight ? chain.tipHeight() - *each.blockHeight + 1 : 0);
  }
  EXPECT_THAT(depths, testing::IsSupersetOf({0, 1, 99, 100}));
}

TEST(ChainTest, PlannedPaymentAndRewardComeOnceAtTheirTime) {
  Chain chain({.address = "bc1qsample", .paymentAfter = 20s, .rewardAfter = 40s});
  const auto before = chain.transactionsOf("bc1qsample").size();
  for (const auto& [time, added] : {std::pair(19s, 0U), std::pair(20s, 1U), std::pair(100s, 2U)}) {
    chain.advanceTo(time);
    EXPECT_EQ(chain.transactionsOf("bc1qsample").size(), before + added);
  }
}

}}  // namespace orvane::test
