#include "support/store_on_fakes.h"
#include <fmt/format.h>

namespace orvane::test {
namespace {
constexpr std::string_view explorer = "https://explorer.test/api/address/";
constexpr const char* poolService = "com.quorvex.hashwick.pool";

std::string profileDocument(const BraiinsAccountStats& stats) {
  return fmt::format(R"({{"btc":{{"hash_rate_unit":"h/s","hash_rate_60m":{},"shares_24h":{},)"
                     R"("today_reward":"{}e-8","current_balance":"{}e-8"}}}})",
                     stats.hashRate60m, static_cast<double>(stats.shares24h) * 1024,
                     stats.todayRewardSats, stats.balanceSats);
}

std::string workersDocument(const std::vector<BraiinsWorkerStatus>& workers) {
  constexpr std::array stateTexts{"ok", "low", "off", "dis", "unknown"};
  std::vector<std::string> entries;
  for (const BraiinsWorkerStatus& worker : workers) {
    entries.push_back(fmt::format(
        R"("{}":{{"state":"{}","hash_rate_unit":"h/s","hash_rate_5m":{},"hash_rate_60m":{},)"
        R"("hash_rate_24h":{},"last_share":{}}})",
        worker.fullName, stateTexts.at(static_cast<std::size_t>(worker.state)), worker.hashRate5m,
        worker.hashRate60m, worker.hashRate24h,
        worker.lastShare ? fmt::to_string(worker.lastShare->time_since_epoch().count()) : "null"));
  }
  return fmt::format(R"({{"btc":{{"workers":{{{}}}}}}})", fmt::join(entries, ","));
}

std::string pricesDocument(const CurrentBitcoinPrices& prices) {
  return fmt::format(R"({{"bitcoin":{{"eur":{},"usd":{}}}}})", prices.eur, prices.usd);
}

std::string totalsDocument(const WatchedAddressSummary& summary) {
  return fmt::format(R"({{"chain_stats":{{"funded_txo_sum":{},"spent_txo_sum":0}},)"
                     R"("mempool_stats":{{"funded_txo_sum":{},"spent_txo_sum":{}}}}})",
                     summary.confirmedSats, std::max<std::int64_t>(summary.pendingSats, 0),
                     std::max<std::int64_t>(-summary.pendingSats, 0));
}

std::string paymentsDocument(std::string_view address,
                             const std::vector<WatchedAddressTransaction>& payments) {
  std::vector<std::string> entries;
  for (const WatchedAddressTransaction& payment : payments) {
    const std::string height =
        payment.blockHeight ? fmt::format(R"(,"block_height":{})", *payment.blockHeight) : "";
    entries.push_back(fmt::format(R"({{"txid":"{}","vin":[{{"is_coinbase":{}}}],)"
                                  R"("vout":[{{"scriptpubkey_address":"{}","value":{}}}],)"
                                  R"("status":{{"confirmed":{}{}}}}})",
                                  payment.txid, payment.isCoinbase, address, payment.sats,
                                  payment.blockHeight.has_value(), height));
  }
  return fmt::format("[{}]", fmt::join(entries, ","));
}
}  // namespace

StoreOnFakes::StoreOnFakes() {
  transport.on("https://pool.test/accounts/rewards/json/btc?")
      .respond(200, R"({"btc":{"daily_rewards":[{"date":1794700800,"total_reward":"0.0001"}]}})");
  transport.on("https://pool.test/accounts/hash_rate_daily/")
      .respond(200, R"({"btc":[{"date":1794700800,"hash_rate_unit":"Gh/s","hash_rate_24h":5,)"
                    R"("total_shares":2048}]})");
  BalanceState figures;
  figures.stats = BraiinsAccountStats{.shares24h = 2, .todayRewardSats = 10, .balanceSats = 203};
  figures.workers = {{.fullName = "pellam.mac"}};
  figures.prices = CurrentBitcoinPrices{.eur = 84123.4, .usd = 97000.1};
  figures.addressSummary = WatchedAddressSummary{
      .confirmedSats = 100'000, .pendingSats = -20'000, .tipHeight = 850'000, .incoming = {}};
  knowFigures(figures);
}

BalancePlatform StoreOnFakes::platform() {
  return {executor,
          transport,
          defaults,
          keychain,
          notifications,
          network,
          format,
          {"pool.test", "explorer.test", "price.test", "fallback.test"},
          {"TEAM.own", sharedGroup}};
}

void StoreOnFakes::start() {
  store.reset();
  store.emplace(platform());
  store->onChange = [this] { ++changes; };
}

void StoreOnFakes::startShowing(const BalanceState& shown) {
  knowFigures(shown);
  keychain.items.clear();
  if (!shown.token.empty()) { storeToken(shown.token); }
  if (shown.addressIsFromMiner) { storePayoutAddress(shown.watchedAddress); }
  StoredSettings settings(defaults);
  settings.setUnit(shown.unit);
  settings.setPreferredFiatCurrency(shown.preferredFiatCurrency);
  settings.setOwnAddress(shown.addressIsFromMiner ? "" : shown.watchedAddress);
  settings.setHistory(shown.history);
  settings.setHistoryView(shown.historyView);
  const auto updated = shown.lastUpdate ? shown.lastUpdate : shown.addressLastUpdate;
  if (updated) { executor.setWallClock(*updated); }
  start();
  executor.advance(BraiinsAccountClient::poolRequestGap);  // the workers follow the account
}

void StoreOnFakes::bring(const BalanceState& shown) {
  knowFigures(shown);
  store->restartPolling();
  store->restartAddressWatch();
  executor.advance(2 * BraiinsAccountClient::poolRequestGap);
}

void StoreOnFakes::knowFigures(const BalanceState& shown) {
  const auto answer = [this](const char* url, const std::optional<std::string>& body) {
    auto& script = transport.on(url);
    body ? script.respond(200, *body) : script.neverAnswer();
  };
  answer("https://pool.test/accounts/profile/json/btc/", shown.stats.transform(profileDocument));
  answer("https://pool.test/accounts/workers/json/btc/", workersDocument(shown.workers));
  answer("https://price.test/", shown.prices.transform(pricesDocument));
  answer(explorer.data(), shown.addressSummary.transform(totalsDocument));
  if (!shown.addressSummary) { return; }
  answer("https://explorer.test/api/blocks/tip/height",
         fmt::to_string(shown.addressSummary->tipHeight));
  transport.onEnding("/txs").respondBy(
      [payments = shown.addressSummary->incoming](const HttpRequest& request) {
        const std::string_view path = std::string_view(request.url).substr(explorer.size());
        const std::string_view address = path.substr(0, path.find('/'));
        return HttpResponse{.status = 200, .body = paymentsDocument(address, payments)};
      });
}

void StoreOnFakes::storeToken(std::string_view token) {
  storeItem(poolService, "braiins-api-token", std::string(token));
}

void StoreOnFakes::storePayoutAddress(std::string address) {
  storeItem("com.quorvex.hashwick.payout", "core-mainnet-payout-address", std::move(address));
}

void StoreOnFakes::storeItem(std::string service, std::string account, std::string data) {
  std::erase_if(keychain.items, [&](const auto& item) { return item.service == service; });
  keychain.items.push_back({service, account, std::move(data), sharedGroup});
}

void StoreOnFakes::setPayments(const std::string& address, const std::vector<std::string>& ids) {
  std::vector<WatchedAddressTransaction> payments;
  for (const std::string& id : ids) {
    payments.push_back({.txid = id, .sats = 1000, .blockHeight = 850'000});
  }
  transport.onEnding(address + "/txs").respond(200, paymentsDocument(address, payments));
}

std::optional<std::string> StoreOnFakes::keptToken() const {
  const auto token = std::ranges::find(keychain.items, poolService, &MemoryKeychain::Item::service);
  return token == keychain.items.end() ? std::nullopt : std::optional(token->data);
}
}  // namespace orvane::test
