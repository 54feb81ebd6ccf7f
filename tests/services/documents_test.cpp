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

  LocalServices services_{startingIn2026()};
};

int statusOf(const LocalServices& services, Service service, const std::string& target,
             const httplib::Headers& headers) {
  const auto result = clientOf(services, service).Get(target, headers);
  return result ? result->status : 0;
}

TEST_F(DocumentsTest, ProfileHasAmountsAsTextsAndRatesAsNumbers) {
  const json profile = at(Service::pool, profileTarget)["btc"];
  EXPECT_EQ(profile["hash_rate_unit"], "Gh/s");
  EXPECT_GT(profile["hash_rate_60m"].get<double>(), 50'000);
  EXPECT_TRUE(profile["shares_24h"].is_number());
  EXPECT_EQ(profile["current_balance"], "0.00198765");
  EXPECT_TRUE(profile["today_reward"].get<std::string>().starts_with("0.0000"));
}

TEST_F(DocumentsTest, WorkersShowEveryStateAndUnit) {
  std::set<std::string> states;
  std::set<std::string> units;
  int withoutFields = 0;
  for (const auto& [name, worker] : at(Service::pool, workersTarget)["btc"]["workers"].items()) {
    if (worker.empty()) {
      ++withoutFields;
      continue;
    }
    states.insert(worker.at("state").get<std::string>());
    units.insert(worker.at("hash_rate_unit").get<std::string>());
    EXPECT_TRUE(worker.at("hash_rate_5m").is_number()) << name;
  }
  EXPECT_EQ(states, (std::set<std::string>{"ok", "low", "off", "dis", "unknown"}));
  EXPECT_EQ(units, (std::set<std::string>{"Mh/s", "Gh/s", "Th/s", "Ph/s"}));
  EXPECT_EQ(withoutFields, 1);
}

TEST_F(DocumentsTest, HistoryIsAYearThatEndsYesterdayWithGapsInBothDocuments) {
  const json rewards = at(Service::pool, rewardsTarget)["btc"]["daily_rewards"];
  const json rates = at(Service::pool, hashRateTarget)["btc"];
  EXPECT_EQ(rewards.back()["date"], 1'794'700'800);  // 2026-11-15
  EXPECT_TRUE(rewards.back()["total_reward"].is_string());
  EXPECT_TRUE(rates.back()["hash_rate_24h"].is_number());
  EXPECT_TRUE(rates.back()["total_shares"].is_number());
  EXPECT_GT(rewards.size(), 340U);
  EXPECT_LT(rewards.size(), 365U);
  EXPECT_GT(rates.size(), 340U);
  EXPECT_LT(rates.size(), 365U);
}

TEST_F(DocumentsTest, RewardsKeepToTheDaysAskedForAndRefuseOtherQueries) {
  const std::string path = "/accounts/rewards/json/btc";
  const json week = at(Service::pool, path + "?from=2026-11-08&to=2026-11-14");
  EXPECT_LE(week["btc"]["daily_rewards"].size(), 7U);
  EXPECT_GE(week["btc"]["daily_rewards"].size(), 6U);
  for (const char* const query :
       {"", "?from=2000-01-01", "?from=2000-01-01&to=", "?from=2000-01-01&to=2026-02-30",
        "?from=2000-01-01&to=2026-11-16T00", "?to=2026-11-16&from=2000-01-01"}) {
    EXPECT_EQ(statusOf(services_, Service::pool, path + query, sampleTokenHeader()), 400) << query;
  }
}

TEST_F(DocumentsTest, PoolRefusesEveryTokenButItsOwn) {
  EXPECT_EQ(statusOf(services_, Service::pool, profileTarget, {}), 401);
  EXPECT_EQ(statusOf(services_, Service::pool, profileTarget, {{"Pool-Auth-Token", "wrong"}}), 401);
  EXPECT_EQ(statusOf(services_, Service::pool, profileTarget, sampleTokenHeader()), 200);
}

TEST_F(DocumentsTest, PathsHoldToTheCharacter) {
  for (const auto& [service, target] :
       {std::pair(Service::pool, "/accounts/profile/json/btc"),
        std::pair(Service::pool, "/accounts/hash_rate_daily/json/group/btc/"),
        std::pair(Service::explorer, "/blocks/tip/height"),
        std::pair(Service::price, "/api/v3/simple/price?ids=bitcoin&vs_currencies=eur%2Cusd"),
        std::pair(Service::fallback, "/v2/exchange-rates")}) {
    EXPECT_EQ(statusOf(services_, service, target, sampleTokenHeader()), 404) << target;
  }
}

TEST_F(DocumentsTest, PricesAreNumbersInOneSourceAndTextsAmongOthersInTheSecond) {
  const json prices = at(Service::price, priceTarget)["bitcoin"];
  EXPECT_NEAR(prices["usd"].get<double>(), 97'000, 3'000);
  EXPECT_LT(prices["eur"], prices["usd"]);
  const json rates = at(Service::fallback, fallbackTarget)["data"]["rates"];
  EXPECT_GT(rates.size(), 10U);
  for (const auto& [currency, rate] : rates.items())
    EXPECT_TRUE(rate.is_string()) << currency;
  EXPECT_NEAR(std::stod(rates["EUR"].get<std::string>()), prices["eur"].get<double>(), 50);
}

TEST_F(DocumentsTest, ExplorerTotalsAreThoseOfItsTransactions) {
  const std::string address{services::sampleAddress};
  const json totals = at(Service::explorer, "/api/address/" + address);
  std::int64_t funded = 0;
  std::int64_t spent = 0;
  std::int64_t waiting = 0;
  for (const json& each : at(Service::explorer, "/api/address/" + address + "/txs")) {
    const bool confirmed = each.at("status").at("confirmed");
    for (const json& output : each.at("vout")) {
      if (output.value("scriptpubkey_address", "") != address) continue;
      (confirmed ? funded : waiting) += output.at("value").get<std::int64_t>();
    }
    for (const json& input : each.at("vin")) {
      if (input.at("is_coinbase") || input["prevout"]["scriptpubkey_address"] != address) continue;
      spent += input["prevout"]["value"].get<std::int64_t>();
    }
  }
  EXPECT_EQ(totals["chain_stats"]["funded_txo_sum"], funded);
  EXPECT_EQ(totals["chain_stats"]["spent_txo_sum"], spent);
  EXPECT_EQ(totals["mempool_stats"]["funded_txo_sum"], waiting);
  EXPECT_EQ(totals["mempool_stats"]["spent_txo_sum"], 0);
  EXPECT_GT(spent, 0);
  EXPECT_GT(waiting, 0);
}

TEST_F(DocumentsTest, AddressWithoutHistoryHasEmptyDocuments) {
  const std::string target = "/api/address/" + services::inventedAddress(12'345'678);
  EXPECT_EQ(at(Service::explorer, target + "/txs"), json::array());
  EXPECT_EQ(at(Service::explorer, target)["chain_stats"]["funded_txo_sum"], 0);
  EXPECT_EQ(at(Service::explorer, target)["mempool_stats"]["funded_txo_sum"], 0);
  EXPECT_EQ(statusOf(services_, Service::explorer, "/api/address/a%20b/txs", {}), 400);
}

}  // namespace
}  // namespace orvane::test
