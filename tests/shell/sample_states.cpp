#include "shell/sample_states.h"

#include <array>
#include <chrono>

#include <fmt/format.h>

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using State = BraiinsWorkerStatus::State;

constexpr std::chrono::sys_seconds now = std::chrono::sys_days(2026y / 11 / 15) + 14h + 5min;

BraiinsWorkerStatus worker(std::string name, State state, double rate) {
  return {.fullName = std::move(name),
          .state = state,
          .hashRate5m = rate * 1.02,
          .hashRate60m = rate,
          .hashRate24h = rate * 0.97,
          .lastShare = now - 3min};
}

BalanceState withLongTexts() {
  auto state = everything();
  state.unit = BalanceUnit::btc;
  state.stats->balanceSats = 2'099'999'997'690'000;
  state.stats->todayRewardSats = 123'456'789'012;
  state.stats->shares24h = 9'223'372'036'854'775'807;
  state.addressSummary->confirmedSats = 2'099'999'997'690'000;
  state.addressSummary->pendingSats = -123'456'789'012;
  state.addressIsFromMiner = false;
  state.watchedAddress = "bc1p5d7rjq7g6rdk2yhzks9smlaqtedr4dekq08ge8ztwac72sfr9rusxg3297";
  state.ownAddress = state.watchedAddress;
  state.workers.push_back(worker("pellam." + std::string(200, 'w'), State::ok, 1e14));
  state.workers.push_back(worker("<b>not markup</b> & more", State::low, 2e14));
  return state;
}

}  // namespace

BalanceState poolAccount() {
  BalanceState state;
  state.token = "sample-token";
  state.stats = BraiinsAccountStats{.hashRate60m = 9.501e13,
                                    .shares24h = 1'912'044'812,
                                    .todayRewardSats = 4'127,
                                    .balanceSats = 128'203};
  state.workers = {
      worker("pellam.mac", State::ok, 4.2e9),       worker("pellam.bitaxe", State::ok, 1.21e12),
      worker("pellam.garage", State::low, 9.38e13), worker("pellam.attic", State::off, 0),
      worker("pellam.spare", State::disabled, 0),   worker("pellam.new", State::unknown, 812)};
  state.lastUpdate = now;
  state.prices = CurrentBitcoinPrices{.eur = 84'123, .usd = 91'840};
  return state;
}

BalanceState watchedAddress() {
  BalanceState state;
  state.watchedAddress = state.ownAddress = firstAddress;
  state.addressSummary = WatchedAddressSummary{
      .confirmedSats = 625'360'179,
      .pendingSats = 312'500'000,
      .tipHeight = 871'012,
      .incoming = {{.txid = "a", .sats = 312'500'000, .isCoinbase = true, .blockHeight = {}},
                   {.txid = "b", .sats = 312'731'002, .isCoinbase = true, .blockHeight = 871'000},
                   {.txid = "c", .sats = 25'000, .blockHeight = 870'990},
                   {.txid = "d", .sats = 312'604'177, .isCoinbase = true, .blockHeight = 870'400}}};
  state.lastUpdate = now;
  state.prices = CurrentBitcoinPrices{.eur = 84'123, .usd = 91'840};
  return state;
}

BalanceState everything() {
  auto state = poolAccount();
  const auto address = watchedAddress();
  state.watchedAddress = address.watchedAddress;
  state.addressIsFromMiner = true;
  state.addressSummary = address.addressSummary;
  state.history = manyDays(365);
  return state;
}

std::vector<BraiinsWorkerStatus> manyWorkers(int count) {
  constexpr std::array states{State::ok, State::ok, State::ok, State::low, State::off};
  std::vector<BraiinsWorkerStatus> workers;
  for (int i = 0; i < count; ++i) {
    const auto state = states.at(static_cast<std::size_t>(i) % states.size());
    workers.push_back(worker(fmt::format("pellam.rig{:05}", i), state, 1e12 + 1e8 * i));
  }
  return workers;
}

std::vector<BraiinsHistoryDay> manyDays(int count) {
  std::vector<BraiinsHistoryDay> days;
  const auto newest = std::chrono::floor<std::chrono::days>(now);
  for (int i = 0; i < count; ++i) {
    BraiinsHistoryDay day{.date = newest - std::chrono::days(i),
                          .averageHashRate = 9.1e13 + 1e11 * (i % 37),
                          .shares = 1'900'000'000 + 7'919 * i,
                          .rewardBTC = fmt::format("0.{:08}", 4'000 + i * 13 % 977)};
    if (i % 11 == 3) { day.rewardBTC.reset(); }
    if (i % 17 == 5) { day.averageHashRate.reset(); }
    days.push_back(std::move(day));
  }
  return days;
}

void Sample::showIn(StoreOnFakes& fakes) const {
  fakes.startShowing(figures);
  if (then == Services::answer) { return; }
  auto& script = fakes.transport.on("");
  then == Services::fail ? script.fail(HttpFailure::timedOut) : script.neverAnswer();
  fakes.store->restartPolling();
  fakes.store->restartAddressWatch();
  fakes.store->loadHistory();
  fakes.executor.advance(2 * BraiinsAccountClient::poolRequestGap);
}

std::vector<Sample> samples() {
  BalanceState loading;
  loading.token = "sample-token";
  loading.watchedAddress = loading.ownAddress = firstAddress;
  auto manyWorkersAlone = poolAccount();
  manyWorkersAlone.workers = manyWorkers(10'000);
  auto noWorkers = poolAccount();
  noWorkers.workers.clear();
  return {{.name = "nothing", .figures = {}},
          {.name = "loading", .figures = loading},
          {.name = "pool", .figures = poolAccount()},
          {.name = "no-workers", .figures = noWorkers},
          {.name = "many-workers", .figures = manyWorkersAlone},
          {.name = "address", .figures = watchedAddress()},
          {.name = "both", .figures = everything()},
          {.name = "long-texts", .figures = withLongTexts(), .then = Sample::Services::fail},
          {.name = "waiting", .figures = poolAccount(), .then = Sample::Services::keepWaiting}};
}

}  // namespace orvane::test
