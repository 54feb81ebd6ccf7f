#include "core/address_watch.h"
#include <utility>
#include "address/bitcoin_address.h"
#include "core/display_texts.h"
#include "platform/async/timer.h"
#include "platform/text/unicode.h"

namespace orvane {
AddressWatch::AddressWatch(const BalancePlatform& platform, BalanceFields& fields,
                           StoredSettings& settings, KeychainItems& keychain, PriceFeed& prices)
    : executor_(platform.executor),
      fields_(fields),
      settings_(settings),
      keychain_(keychain),
      prices_(prices),
      addressClient_(platform.transport, platform.hosts.explorer),
      notifications_(platform.executor, platform.defaults, platform.notifications, platform.format,
                     [&fields, &format = platform.format](std::int64_t sats) {
                       return amountText(fields.state(), format, sats);
                     }),
      tasks_(platform.executor) {}

void AddressWatch::start() {
  if (!fields_->ownAddress.empty()) { useAddresses(""); }
  restartAddressWatch();
}

std::optional<std::string> AddressWatch::setOwnAddress(std::string_view text) {
  const std::string address(trimmed(text));
  if (address == fields_->ownAddress) { return std::nullopt; }
  if (!address.empty() && !isValidMainnetAddress(address)) {
    return "This is not a Bitcoin mainnet address. It starts with bc1, 1 or 3.";
  }
  fields_.set(&BalanceState::ownAddress, address);
  settings_.setOwnAddress(address);
  restartAddressWatch();
  return std::nullopt;
}

void AddressWatch::restartAddressWatch() {
  addressTask_.cancel();
  addressTask_ = tasks_.spawn(watchLoop());
}

void AddressWatch::takeNetwork() {
  if (networkNeed_.takeNetwork()) { restartAddressWatch(); }
}

Task<void> AddressWatch::watchLoop() {
  const TaskContext context = co_await currentContext();
  while (!context.stop.stop_requested()) {
    networkNeed_.beginCycle();
    co_await refreshAddress();
    if (networkNeed_.endCycle()) { continue; }
    const SleepEnd sleep = co_await sleepFor(watchInterval);
    if (sleep == SleepEnd::cancelled) { co_return; }
  }
}

Task<void> AddressWatch::refreshAddress() {
  co_await resolveWatchedAddress();
  if (fields_->watchedAddress.empty()) { co_return; }
  co_await loadAddressSummary();
  // With a token the pool's cycle fetches the prices.
  if (fields_->token.empty()) { co_await prices_.refreshPrices(); }
}

Task<void> AddressWatch::resolveWatchedAddress() {
  const TaskContext context = co_await currentContext();
  std::string payout;
  // An entered address does not wait for a keychain that may be waiting for the user.
  if (fields_->ownAddress.empty()) {
    // What is watched already is read again, whether or not the user answers a prompt meanwhile.
    std::optional<ExecutorClock::duration> patience;
    if (!fields_->watchedAddress.empty()) { patience = keychainPatience; }
    const KeychainReading<Secret> stored = co_await keychain_.readItem(
        payoutAddressItem.service, payoutAddressItem.account, KeychainPrompt::never, patience);
    if (context.stop.stop_requested()) { co_return; }
    isPayoutAddressUnknown_ = !stored && stored.error() == KeychainMiss::unknown;
    if (isPayoutAddressUnknown_) { co_return; }  // what is watched may still be right
    payout = trimmed(stored.value_or(""));
    if (!isValidMainnetAddress(payout)) { payout.clear(); }
  }
  useAddresses(payout);
}

void AddressWatch::readUnknownAddress() {
  if (std::exchange(isPayoutAddressUnknown_, false)) { restartAddressWatch(); }
}

void AddressWatch::useAddresses(std::string_view payoutAddress) {
  const bool isEntered = !fields_->ownAddress.empty();
  std::string effective = isEntered ? fields_->ownAddress : std::string(payoutAddress);
  fields_.set(&BalanceState::addressIsFromMiner, !isEntered && !effective.empty());
  if (effective == fields_->watchedAddress) { return; }

  fields_.set(&BalanceState::watchedAddress, std::move(effective));
  notifications_.watch(fields_->watchedAddress);
  fields_.set(&BalanceState::addressSummary, std::nullopt);
  fields_.set(&BalanceState::addressStatus, std::nullopt);
  fields_.set(&BalanceState::addressLastUpdate, std::nullopt);
  fields_.invokeOnChange();
}

Task<void> AddressWatch::loadAddressSummary() {
  const TaskContext context = co_await currentContext();
  const std::string address = fields_->watchedAddress;
  fields_.set(&BalanceState::isRefreshingAddress, true);
  std::expected<WatchedAddressSummary, ExplorerError> summary =
      co_await addressClient_.summary(address);
  const bool isWatched = fields_->watchedAddress == address;
  if (isWatched && !isCancelled(context, summary)) { applySummary(std::move(summary)); }
  fields_.set(&BalanceState::isRefreshingAddress, false);
}

void AddressWatch::applySummary(std::expected<WatchedAddressSummary, ExplorerError> summary) {
  if (summary) {
    notifications_.notifyNewTransactions(*summary);
    fields_.set(&BalanceState::addressSummary, *std::move(summary));
    fields_.set(&BalanceState::addressLastUpdate, executor_.wallClock());
    fields_.set(&BalanceState::addressStatus, std::nullopt);
  } else {
    networkNeed_.noteFailure(summary.error());
    fields_.set(&BalanceState::addressStatus, explorerErrorText());
  }
  fields_.invokeOnChange();
}
}  // namespace orvane
