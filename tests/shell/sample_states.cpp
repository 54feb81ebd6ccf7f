#include "shell/sample_states.h"
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

std::vector<BraiinsHistoryDay> yearOfHistory() {
  std::vector<BraiinsHistoryDay> days;
  for (int i = 0; i < 365; ++i) {
    BraiinsHistoryDay day{.date = std::chrono::floor<std::chrono::days>(now) - std::chrono::days(i),
                          .averageHashRate = 9.1e13 + 1e11 * (i % 37),
                          .shares = 1'900'000'000 + 7'919 * i,
                          .rewardBTC = fmt::format("0.{:08}", 4'000 + i * 13 % 977)};
    if (i % 11 == 3) { day = {.date = day.date}; }
    days.push_back(std::move(day));
  }
  return days;
}

BalanceState withLongTexts() {
  auto state = everything();
  state.unit = BalanceUnit::btc;
  state.stats->balanceSats = 2'099'999'997'690'000;
  state.stats->todayRewardSats = 123'456'789'012;
  state.stats->shares24h = 9'223'372'036'854'775'807;
  state.addressSummary->confirmedSats = 2'099'999'997'690'000;
  state.addressSummary->pendingSats = -123'456'789'012;
  state.watchedAddress = "bc1p5d7rjq7g6rdk2yhzks9smlaqtedr4dekq08ge8ztwac72sfr9rusxg3297";
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
  state.watchedAddress = firstAddress;
  state.addressSummary = WatchedAddressSummary{
      .confirmedSats = 625'360'179,
      .pendingSats = 312'500'000,
      .tipHeight = 871'012,
      .incoming = {{.txid = "a", .sats = 312'500'000, .isCoinbase = true, .blockHeight = {}},
                   {.txid = "b", .sats = 312'731'002, .isCoinbase = true, .blockHeight = 871'000},
                   {.txid = "c", .sats = 312'604'177, .isCoinbase = true, .blockHeight = 870'400}}};
  state.prices = CurrentBitcoinPrices{.eur = 84'123, .usd = 91'840};
  return state;
}

BalanceState everything() {
  auto state = poolAccount();
  state.watchedAddress = firstAddress;
  state.addressIsFromMiner = true;
  state.addressSummary = watchedAddress().addressSummary;
  state.history = yearOfHistory();
  return state;
}

std::vector<BraiinsWorkerStatus> manyWorkers(int count) {
  std::vector<BraiinsWorkerStatus> workers;
  for (int i = 0; i < count; ++i) {
    const auto state = i % 5 < 3 ? State::ok : State::low;
    workers.push_back(worker(fmt::format("pellam.rig{:05}", i), state, 1e12 + 1e8 * i));
  }
  return workers;
}

void Sample::showIn(StoreOnFakes& fakes) const {
  fakes.startShowing(figures);
  if (!servicesFail) { return; }
  fakes.transport.on("").fail(HttpFailure::timedOut);
  fakes.store->restartPolling();
  fakes.store->restartAddressWatch();
  fakes.store->loadHistory();
  fakes.executor.advance(2 * BraiinsAccountClient::poolRequestGap);
}

std::vector<Sample> samples() {
  BalanceState loading;
  loading.token = "sample-token";
  loading.watchedAddress = firstAddress;
  BalanceState chart = everything();
  chart.historyView = HistoryView::chart;
  return {{.name = "nothing", .figures = {}},
          {.name = "loading", .figures = loading},
          {.name = "pool", .figures = poolAccount()},
          {.name = "address", .figures = watchedAddress()},
          {.name = "both", .figures = everything()},
          {.name = "chart", .figures = chart},
          {.name = "long-texts", .figures = withLongTexts(), .servicesFail = true}};
}
}  // namespace orvane::test
