#include "store_fixture.h"

#include <fmt/format.h>

namespace orvane::test {
namespace {

constexpr const char* profileDocument =
    R"({"btc":{"hash_rate_unit":"Gh/s","hash_rate_60m":5,"shares_24h":2048,)"
    R"("today_reward":"0.00000010","current_balance":"0.00000203"}})";
constexpr const char* workersDocument =
    R"({"btc":{"workers":{"pellam.mac":{"state":"ok","hash_rate_unit":"Gh/s","hash_rate_5m":1}}}})";
constexpr const char* rewardsDocument =
    R"({"btc":{"daily_rewards":[{"date":1794700800,"total_reward":"0.0001"}]}})";
constexpr const char* dailyHashrateDocument =
    R"({"btc":[{"date":1794700800,"hash_rate_unit":"Gh/s","hash_rate_24h":5,"total_shares":2048}]})";
constexpr const char* pricesDocument = R"({"bitcoin":{"eur":84123.4,"usd":97000.1}})";
constexpr const char* totalsDocument =
    R"({"chain_stats":{"funded_txo_sum":150000,"spent_txo_sum":50000},)"
    R"("mempool_stats":{"funded_txo_sum":0,"spent_txo_sum":20000}})";

constexpr const char* poolService = "com.quorvex.hashwick.pool";
constexpr const char* payoutService = "com.quorvex.hashwick.payout";

}  // namespace

std::string paymentsDocument(const std::string& address, const std::vector<std::string>& ids) {
  std::string payments;
  for (const std::string& id : ids) {
    payments += fmt::format(
        R"({}{{"txid":"{}","vin":[{{"is_coinbase":false}}],"vout":[{{"scriptpubkey_address":"{}",)"
        R"("value":1000}}],"status":{{"confirmed":true,"block_height":840000}}}})",
        payments.empty() ? "" : ",", id, address);
  }
  return "[" + payments + "]";
}

StoreTest::StoreTest() {
  transport.on("https://pool.test/accounts/profile/json/btc/").respond(200, profileDocument);
  transport.on("https://pool.test/accounts/workers/json/btc/").respond(200, workersDocument);
  transport.on("https://pool.test/accounts/rewards/json/btc?").respond(200, rewardsDocument);
  transport.on("https://pool.test/accounts/hash_rate_daily/").respond(200, dailyHashrateDocument);
  transport.on("https://price.test/").respond(200, pricesDocument);
  for (const char* address : {firstAddress, secondAddress}) {
    transport.on("https://explorer.test/api/address/" + std::string(address))
        .respond(200, totalsDocument);
    setPayments(address, {});
  }
  transport.on("https://explorer.test/api/blocks/tip/height").respond(200, "850000");
}

void StoreTest::start() {
  store.reset();
  store.emplace(BalancePlatform{.executor = executor,
                                .transport = transport,
                                .defaults = defaults,
                                .keychain = keychain,
                                .notifications = notifications,
                                .format = format,
                                .hosts = {.pool = "pool.test",
                                          .explorer = "explorer.test",
                                          .price = "price.test",
                                          .fallbackPrice = "fallback.test"},
                                .accessGroups = {"TEAM.own", sharedGroup}});
  store->onChange = [this] { ++changes; };
}

void StoreTest::startAndSettle() {
  start();
  executor.runUntilIdle();
}

void StoreTest::startWithFigures() {
  storeToken("first");
  start();
  executor.advance(std::chrono::seconds(100));
  takeChanges();
}

void StoreTest::storeToken(std::string token) {
  keychain.items.push_back({.service = poolService,
                            .account = "braiins-api-token",
                            .data = std::move(token),
                            .accessGroup = sharedGroup});
}

void StoreTest::storePayoutAddress(std::string address) {
  std::erase_if(keychain.items, [](const auto& item) { return item.service == payoutService; });
  keychain.items.push_back({.service = payoutService,
                            .account = "core-mainnet-payout-address",
                            .data = std::move(address),
                            .accessGroup = sharedGroup});
}

void StoreTest::setPayments(const std::string& address, const std::vector<std::string>& ids) {
  transport.onEnding(address + "/txs").respond(200, paymentsDocument(address, ids));
}

std::optional<std::string> StoreTest::keptToken() const {
  for (const auto& item : keychain.items) {
    if (item.service == poolService) return item.data;
  }
  return std::nullopt;
}

}  // namespace orvane::test
