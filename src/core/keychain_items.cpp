#include "core/keychain_items.h"
#include <algorithm>
#include <utility>
#include "platform/text/unicode.h"

namespace orvane {
namespace {
/// Identifies one item, in whichever group it is.
KeychainQuery baseQuery(std::string service, std::string account) {
  return {.service = std::move(service), .account = std::move(account)};
}
}  // namespace

std::optional<std::string> sharedAccessGroup(const std::vector<std::string>& accessGroups) {
  const auto shared = std::ranges::find_if(accessGroups, [](const std::string& group) {
    return group.ends_with(".com.quorvex.hashwick.shared");
  });
  return shared == accessGroups.end() ? std::nullopt : std::optional(*shared);
}

KeychainItems::KeychainItems(Executor& executor, Keychain& keychain,
                             std::optional<std::string> accessGroup)
    : keychain_(keychain), accessGroup_(std::move(accessGroup)), writes_(executor) {}

Task<std::optional<std::string>> KeychainItems::readItem(std::string service, std::string account,
                                                         KeychainPrompt prompt) {
  std::optional<AsyncMutex::Lock> turn = co_await order_.lock();
  if (!turn) { co_return std::nullopt; }

  const KeychainQuery query = baseQuery(std::move(service), std::move(account));
  const std::optional<KeychainItem> item = co_await keychain_.copyMatching(query, prompt);
  if (!item || !isValidUtf8(item->data)) { co_return std::nullopt; }
  if (belongsElsewhere(*item)) {
    // Cut off between its two steps, a move would lose the item: it belongs to no task that may be
    // cancelled, and the next call waits for it.
    writes_.spawn(moveToSharedGroup(std::move(*turn), *item, query));
  }
  co_return item->data;
}

bool KeychainItems::belongsElsewhere(const KeychainItem& item) const {
  return accessGroup_ && item.accessGroup && *item.accessGroup != *accessGroup_;
}

Task<void> KeychainItems::moveToSharedGroup([[maybe_unused]] AsyncMutex::Lock turn,
                                            KeychainItem item, KeychainQuery query) {
  KeychainQuery oldPlace = query;
  oldPlace.accessGroup = item.accessGroup;
  co_await keychain_.remove(std::move(oldPlace), KeychainPrompt::never);
  co_await save(std::move(item.data), std::move(query), KeychainPrompt::never);
}

void KeychainItems::saveItem(std::string text, std::string service, std::string account) {
  writes_.spawn(saveInTurn(std::move(text), baseQuery(std::move(service), std::move(account))));
}

Task<void> KeychainItems::saveInTurn(std::string text, KeychainQuery query) {
  const std::optional<AsyncMutex::Lock> turn = co_await order_.lock();
  if (turn) { co_await save(std::move(text), std::move(query), KeychainPrompt::allowed); }
}

Task<void> KeychainItems::save(std::string text, KeychainQuery query, KeychainPrompt prompt) {
  if (text.empty()) {
    co_await keychain_.remove(std::move(query), prompt);
    co_return;
  }
  query.accessGroup = accessGroup_;
  const KeychainStatus updated = co_await keychain_.update(query, text, prompt);
  if (updated == KeychainStatus::itemNotFound) {
    co_await keychain_.add(std::move(query), std::move(text), prompt);
  }
}
}  // namespace orvane
