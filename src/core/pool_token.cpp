#include <optional>
#include <string>
#include <utility>

#include "core/pool_account.h"
#include "core/shared_items.h"
#include "platform/text/unicode.h"

namespace orvane {

void PoolAccount::readStoredToken() {
  fields_.set(&BalanceState::isReadingToken, true);
  tasks_.spawn(useStoredToken());
}

Task<void> PoolAccount::useStoredToken() {
  std::optional<std::string> stored = co_await keychain_.readItem(
      poolTokenItem.service, poolTokenItem.account, KeychainPrompt::allowed);
  // A token that the user has entered meanwhile counts; its save follows this read.
  if (!fields_->isReadingToken) { co_return; }
  assignToken(std::move(stored).value_or(""));
  if (fields_->token.empty()) { co_return; }
  fields_.invokeOnChange();
  restartPolling();
}

void PoolAccount::assignToken(std::string token) {
  client_.token = token;
  fields_.set(&BalanceState::token, std::move(token));
  fields_.set(&BalanceState::isReadingToken, false);
}

void PoolAccount::setToken(std::string_view text) {
  const std::string token(trimmed(text));
  if (token == fields_->token) { return; }

  assignToken(token);
  keychain_.saveItem(token, poolTokenItem.service, poolTokenItem.account);
  fields_.set(&BalanceState::stats, std::nullopt);
  fields_.set(&BalanceState::workers, {});
  fields_.set(&BalanceState::accountStatus, std::nullopt);
  if (token.empty()) {
    fields_.set(&BalanceState::history, {});
    settings_.removeHistory();
    fields_.set(&BalanceState::historyStatus, std::nullopt);
  }
  fields_.invokeOnChange();
  restartPolling();
  loadHistory();
}

}  // namespace orvane
