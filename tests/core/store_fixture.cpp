#include "store_fixture.h"

#include "address/explorer_texts.h"

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
constexpr const char* poolService = "com.quorvex.hashwick.pool";
constexpr const char* payoutService = "com.quorvex.hashwick.payout";

}  // namespace

StoreTest::StoreTest() {
  transport.on("https://pool.test/accounts/profile/json/btc/").respond(200, profileDocument);
  transport.on("https://pool.test/accounts/workers/json/btc/").respond(200, workersDocument);
  transport.on("https://pool.test/accounts/rewards/json/btc?").respond(200, rewardsDocument);
  transport.on("https://pool.test/accounts/hash_rate_daily/").respond(200, dailyHashrateDocument);
  transport.on("https://price.test/").respond(200, pricesDocument);
  for (const char* address : {firstAddress, secondAddress}) {
    transport.on("https://explorer.test/api/address/" + std::string(address))
        .respond(200, totalsText(150000, 50000));
    setPayments(address, {});
  }
  transport.on("https://explorer.test/api/blocks/tip/height").respond(200, "850000");
}

BalancePlatform StoreTest::platform() {
  return {.executor = executor,
          .transport = transport,
          .defaults = defaults,
          .keychain = keychain,
          .notifications = notifications,
          .format = format,
          .hosts = {.pool = "pool.test",
                    .explorer = "explorer.test",
                    .price = "price.test",
                    .fallbackPrice = "fallback.test"},
          .accessGroups = {"TEAM.own", sharedGroup}};
}

void StoreTest::start() {
  store.reset();
  store.emplace(platform());
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
  std::vector<std::string> payments;
  for (const std::string& id : ids) {
    payments.push_back(TransactionText(id).paying(address, 1000).json());
  }
  transport.onEnding(address + "/txs").respond(200, fmt::format("[{}]", fmt::join(payments, ",")));
}

std::optional<std::string> StoreTest::keptToken() const {
  for (const auto& item : keychain.items) {
    if (item.service == poolService) { return item.data; }
  }
  return std::nullopt;
}

std::vector<bool> StoreTest::valuesDuring(bool BalanceState::* flag,
                                          const std::function<void()>& story) {
  std::vector<bool> values;
  const auto subscription = store->observe([&] {
    if (values.empty() || values.back() != state().*flag) { values.push_back(state().*flag); }
  });
  story();
  return values;
}

}  // namespace orvane::test
