#include <set>

#include <gtest/gtest.h>

#include "services/services_client.h"

namespace orvane::test {
namespace {

using nlohmann::json;

class DocumentsTest : public ::testing::Test {
 protected:
  json at(Service service, const std::string& target) {
    return documentAt(services_, service, target);
  }
  int statusOf(Service service, const std::string& target,
               const httplib::Headers& headers = sampleTokenHeader()) {
    const auto result = clientOf(services_, service).Get(target, headers);
    return result ? result->status : 0;
  }

  LocalServices services_{startingIn2026()};
};

TEST_F(DocumentsTest, WorkersShowEveryStateAndUnit) {
  std::set<std::string> states;
  std::set<std::string> units;
  for (const auto& [name, worker] : at(Service::pool, workersTarget)["btc"]["workers"].items()) {
    states.insert(worker.value("state", "none"));
    units.insert(worker.value("hash_rate_unit", "none"));
  }
  EXPECT_EQ(states, (std::set<std::string>{"ok", "low", "off", "dis", "unknown", "none"}));
  EXPECT_EQ(units, (std::set<std::string>{"Mh/s", "Gh/s", "Th/s", "Ph/s", "none"}));
}

TEST_F(DocumentsTest, OneWorkerGoesLowThenOffThenComesBack) {
  std::vector<std::string> states;
  // As a client sees it that asks for the workers a minute after each five-minute refresh.
  for (const int seconds : {60, 300, 300, 300}) {
    services_.advance(std::chrono::seconds(seconds));
    const json workers = at(Service::pool, workersTarget)["btc"]["workers"];
    states.push_back(workers["larkspur.attic-s9"]["state"]);
  }
  EXPECT_EQ(states, (std::vector<std::string>{"ok", "low", "off", "ok"}));
}

TEST_F(DocumentsTest, AmountsAreTextsAndRatesAreNumbers) {
  const json profile = at(Service::pool, profileTarget)["btc"];
  EXPECT_GT(profile["hash_rate_60m"].get<double>(), 50'000);
  EXPECT_EQ(profile["current_balance"], "0.00198765");
  EXPECT_TRUE(profile["today_reward"].is_string());
  const json rewards = at(Service::pool, rewardsTarget)["btc"]["daily_rewards"];
  EXPECT_EQ(rewards.back()["date"], 1'794'700'800);  // 2026-11-15
  EXPECT_TRUE(rewards.back()["total_reward"].is_string());
  EXPECT_TRUE(at(Service::pool, hashRateTarget)["btc"].back()["hash_rate_24h"].is_number());
  const json prices = at(Service::price, priceTarget)["bitcoin"];
  EXPECT_NEAR(prices["usd"].get<double>(), 97'000, 3'000);
  const json rates = at(Service::fallback, fallbackTarget)["data"]["rates"];
  EXPECT_NEAR(std::stod(rates["EUR"].get<std::string>()), prices["eur"].get<double>(), 50);
}

TEST_F(DocumentsTest, WhatIsNotAskedForToTheCharacterIsRefused) {
  const std::string rewards = "/accounts/rewards/json/btc";
  const json week = at(Service::pool, rewards + "?from=2026-11-08&to=2026-11-14");
  EXPECT_LE(week["btc"]["daily_rewards"].size(), 7U);
  for (const char* const query : {"", "?from=2000-01-01", "?from=2000-01-01&to=2026-02-30",
                                  "?to=2026-11-16&from=2000-01-01"}) {
    EXPECT_EQ(statusOf(Service::pool, rewards + query), 400) << query;
  }
  EXPECT_EQ(statusOf(Service::pool, profileTarget, {}), 401);
  EXPECT_EQ(statusOf(Service::pool, profileTarget, {{"Pool-Auth-Token", "wrong"}}), 401);
  for (const auto& [service, target] :
       {std::pair(Service::pool, "/accounts/profile/json/btc"),
        std::pair(Service::explorer, "/blocks/tip/height"),
        std::pair(Service::price, "/api/v3/simple/price?ids=bitcoin&vs_currencies=eur%2Cusd"),
        std::pair(Service::fallback, "/v2/exchange-rates")}) {
    EXPECT_EQ(statusOf(service, target), 404) << target;
  }
}

TEST_F(DocumentsTest, ExplorerTotalsAreThoseOfItsTransactions) {
  const std::string address{services::sampleAddress};
  const json totals = at(Service::explorer, "/api/address/" + address);
  std::int64_t funded = 0;
  std::int64_t spent = 0;
  std::int64_t waiting = 0;
  for (const json& each : at(Service::explorer, "/api/address/" + address + "/txs")) {
    for (const json& output : each.at("vout")) {
      if (output.value("scriptpubkey_address", "") != address) { continue; }
      const bool confirmed = each.at("status").at("confirmed");
      (confirmed ? funded : waiting) += output.at("value").get<std::int64_t>();
    }
    for (const json& input : each.at("vin")) {
      if (input.at("is_coinbase") || input["prevout"]["scriptpubkey_address"] != address) {
        continue;
      }
      spent += input["prevout"]["value"].get<std::int64_t>();
    }
  }
  EXPECT_EQ(totals["chain_stats"]["funded_txo_sum"], funded);
  EXPECT_EQ(totals["chain_stats"]["spent_txo_sum"], spent);
  EXPECT_EQ(totals["mempool_stats"]["funded_txo_sum"], waiting);
  EXPECT_GT(spent, 0);
  EXPECT_GT(waiting, 0);
}

}  // namespace
}  // namespace orvane::test
