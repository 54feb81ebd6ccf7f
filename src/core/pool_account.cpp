#include "core/pool_account.h"
#include <optional>
#include <utility>
#include "core/display_texts.h"
#include "platform/async/timer.h"
#include "platform/text/unicode.h"

namespace orvane {
PoolAccount::PoolAccount(const BalancePlatform& platform, BalanceFields& fields,
                         StoredSettings& settings, KeychainItems& keychain, PriceFeed& prices)
    : executor_(platform.executor),
      format_(platform.format),
      fields_(fields),
      settings_(settings),
      keychain_(keychain),
      prices_(prices),
      client_(platform.executor, platform.transport, platform.hosts.pool),
      workerNotifications_(platform, settings.notifiesWorkerStates()),
      tasks_(platform.executor) {}

void PoolAccount::readStoredToken() {
  fields_.set(&BalanceState::isReadingToken, true);
  tasks_.spawn(useStoredToken());
}

Task<void> PoolAccount::useStoredToken() {
  KeychainReading<Secret> stored = co_await keychain_.readItem(
      poolTokenItem.service, poolTokenItem.account, KeychainPrompt::allowed);
  // A token that the user has entered meanwhile counts; its save follows this read.
  if (!fields_->isReadingToken) { co_return; }
  isStoredTokenUnknown_ = !stored && stored.error() == KeychainMiss::unknown;
  assignToken(std::move(stored).value_or(Secret()));
  fields_.invokeOnChange();
  restartPolling();
}

void PoolAccount::readUnknownToken() {
  if (std::exchange(isStoredTokenUnknown_, false)) { readStoredToken(); }
}

void PoolAccount::assignToken(Secret token) {
  client_.token = token;
  fields_.set(&BalanceState::token, std::move(token));
  fields_.set(&BalanceState::isReadingToken, false);
}

void PoolAccount::setToken(std::string_view text) {
  const std::string_view token = trimmed(text);
  if (token == fields_->token) { return; }

  assignToken(token);
  isStoredTokenUnknown_ = false;
  keychain_.saveItem(token, poolTokenItem.service, poolTokenItem.account);
  fields_.set(&BalanceState::stats, std::nullopt);
  fields_.set(&BalanceState::workers, {});
  fields_.set(&BalanceState::accountStatus, std::nullopt);
  workerNotifications_.forgetWorkers();
  dropHistoryLoad();
  if (token.empty()) {
    fields_.set(&BalanceState::history, {});
    settings_.removeHistory();
    fields_.set(&BalanceState::historyStatus, std::nullopt);
  }
  fields_.invokeOnChange();
  restartPolling();
  loadHistory();
}

void PoolAccount::restartPolling() {
  pollTask_.cancel();
  pollTask_ = fields_->token.empty() ? TaskHandle() : tasks_.spawn(pollLoop());
}

void PoolAccount::takeNetwork() {
  if (networkNeed_.takeNetwork()) { restartPolling(); }
}

Task<void> PoolAccount::pollLoop() {
  const TaskContext context = co_await currentContext();
  while (!context.stop.stop_requested()) {
    networkNeed_.beginCycle();
    co_await refreshAccount();
    co_await prices_.refreshPrices();
    if (networkNeed_.endCycle()) { continue; }
    const SleepEnd sleep = co_await sleepFor(pollInterval);
    if (sleep == SleepEnd::cancelled) { co_return; }
  }
}

Task<void> PoolAccount::refreshAccount() {
  fields_.set(&BalanceState::isRefreshing, true);
  const bool areNew = co_await refreshStats();
  if (areNew) { co_await refreshWorkers(); }
  fields_.set(&BalanceState::isRefreshing, false);
}

Task<bool> PoolAccount::refreshStats() {
  const TaskContext context = co_await currentContext();
  const std::expected<BraiinsAccountStats, PoolError> stats = co_await client_.fetchStats();
  if (isCancelled(context, stats)) { co_return false; }
  if (stats) {
    fields_.set(&BalanceState::stats, *stats);
    fields_.set(&BalanceState::lastUpdate, executor_.wallClock());
    fields_.set(&BalanceState::accountStatus, std::nullopt);
  } else {
    networkNeed_.noteFailure(stats.error());
    fields_.set(&BalanceState::accountStatus, poolErrorText(stats.error(), "account"));
  }
  fields_.invokeOnChange();
  co_return stats.has_value();
}

Task<void> PoolAccount::refreshWorkers() {
  const TaskContext context = co_await currentContext();
  std::expected<std::vector<BraiinsWorkerStatus>, PoolError> workers =
      co_await client_.fetchWorkers();
  if (isCancelled(context, workers)) { co_return; }
  if (!workers) {
    networkNeed_.noteFailure(workers.error());
    co_return;
  }
  workerNotifications_.noticeWorkers(*workers);
  fields_.set(&BalanceState::workers, *std::move(workers));
}

void PoolAccount::setNotifiesWorkerStates(bool on) {
  workerNotifications_.setOn(on, fields_->workers);
}

void PoolAccount::loadHistory() {
  if (fields_->token.empty() || !historyTask_.finished()) { return; }
  historyTask_ = tasks_.spawn(historyLoad());
  fields_.set(&BalanceState::isLoadingHistory, true);
  fields_.set(&BalanceState::historyStatus, std::nullopt);
}

// A history belongs to one account: what was asked for with another token is of no use any more.
void PoolAccount::dropHistoryLoad() {
  historyTask_.cancel();
  historyTask_ = {};
  fields_.set(&BalanceState::isLoadingHistory, false);
}

Task<void> PoolAccount::historyLoad() {
  const TaskContext context = co_await currentContext();
  std::expected<std::vector<BraiinsHistoryDay>, PoolError> days = co_await client_.fetchHistory();
  if (context.stop.stop_requested()) { co_return; }
  applyHistory(std::move(days));
  historyTask_ = {};
  fields_.set(&BalanceState::isLoadingHistory, false);
}

void PoolAccount::applyHistory(std::expected<std::vector<BraiinsHistoryDay>, PoolError> days) {
  if (days) {
    std::string status = days->empty() ? "Braiins has no daily entry for this account yet."
                                       : updatedText(format_, executor_.wallClock());
    fields_.set(&BalanceState::history, *std::move(days));
    settings_.setHistory(fields_->history);
    fields_.set(&BalanceState::hasHistoryFailed, false);
    fields_.set(&BalanceState::historyStatus, std::move(status));
  } else if (days.error().kind != PoolError::Kind::cancelled) {
    fields_.set(&BalanceState::hasHistoryFailed, true);
    fields_.set(&BalanceState::historyStatus, poolErrorText(days.error(), "history"));
  }
}
}  // namespace orvane
