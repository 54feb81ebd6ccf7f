#include "core/balance_store.h"
#include <utility>
#include "core/display_texts.h"

namespace orvane {
BalanceStore::BalanceStore(BalancePlatform platform)
    : format_(platform.format),
      fields_([this] {
        if (onChange) { onChange(); }
      }),
      settings_(platform.defaults),
      keychain_(platform.executor, platform.keychain, sharedAccessGroup(platform.accessGroups)),
      prices_(fields_, BitcoinPriceService(platform.transport, platform.hosts.price,
                                           platform.hosts.fallbackPrice)),
      pool_(platform, fields_, settings_, keychain_, prices_),
      address_(platform, fields_, settings_, keychain_, prices_),
      keychainObserver_(platform.keychain.observeArrival([this] {
        pool_.readUnknownToken();
        address_.readUnknownAddress();
      })),
      networkWatch_(platform.network.onReachable([this] {
        pool_.takeNetwork();
        address_.takeNetwork();
      })) {
  fields_.set(&BalanceState::unit, settings_.unit());
  fields_.set(&BalanceState::preferredFiatCurrency, settings_.preferredFiatCurrency());
  fields_.set(&BalanceState::historyView, settings_.historyView());
  fields_.set(&BalanceState::historySpan, settings_.historySpan());
  fields_.set(&BalanceState::notifiesWorkerStates, settings_.notifiesWorkerStates());
  pool_.readStoredToken();
  fields_.set(&BalanceState::history, settings_.history());
  fields_.set(&BalanceState::ownAddress, settings_.ownAddress());
  address_.start();
}

Registration BalanceStore::observe(std::function<void()> listener) {
  return fields_.observe(std::move(listener));
}

void BalanceStore::setUnit(Unit unit) {
  fields_.set(&BalanceState::unit, unit);
  settings_.setUnit(unit);
}

void BalanceStore::setPreferredFiatCurrency(PreferredFiatCurrency currency) {
  fields_.set(&BalanceState::preferredFiatCurrency, currency);
  settings_.setPreferredFiatCurrency(currency);
}

void BalanceStore::setHistoryView(HistoryView view) {
  fields_.set(&BalanceState::historyView, view);
  settings_.setHistoryView(view);
}

void BalanceStore::setHistorySpan(HistorySpan span) {
  fields_.set(&BalanceState::historySpan, span);
  settings_.setHistorySpan(span);
}

void BalanceStore::setNotifiesWorkerStates(bool on) {
  fields_.set(&BalanceState::notifiesWorkerStates, on);
  settings_.setNotifiesWorkerStates(on);
  pool_.setNotifiesWorkerStates(on);
}

void BalanceStore::setToken(std::string_view text) { pool_.setToken(text); }
void BalanceStore::loadHistory() { pool_.loadHistory(); }
void BalanceStore::restartPolling() { pool_.restartPolling(); }
void BalanceStore::restartAddressWatch() { address_.restartAddressWatch(); }
std::optional<std::string> BalanceStore::setOwnAddress(std::string_view text) {
  return address_.setOwnAddress(text);
}

std::string BalanceStore::menuBarTitle() const { return orvane::menuBarTitle(state(), format_); }
std::string BalanceStore::amountNumberText(std::int64_t sats) const {
  return orvane::amountNumberText(state(), format_, sats);
}
std::string BalanceStore::amountText(std::int64_t sats) const {
  return orvane::amountText(state(), format_, sats);
}
std::optional<std::string> BalanceStore::fiatText(double sats) const {
  return orvane::fiatText(state(), format_, sats);
}
std::optional<std::string> BalanceStore::priceText() const {
  return orvane::priceText(state(), format_);
}
}  // namespace orvane
