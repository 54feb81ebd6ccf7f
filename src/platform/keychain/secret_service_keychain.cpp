#include "platform/keychain/secret_service_keychain.h"

#include <functional>

#include "platform/keychain/deadline.h"
#include "platform/keychain/item_search.h"
#include "platform/keychain/item_writes.h"

namespace orvane {
namespace {

using Write = std::function<Task<bool>(SecretItemRef)>;

/// Writes to every matching item that is not locked.
Task<KeychainStatus> writeToAll(KeychainQuery query, Write write) {
  const std::optional<SecretItems> items = co_await findItems(query);
  if (!items) co_return KeychainStatus::failed;
  if (items->empty()) co_return KeychainStatus::itemNotFound;

  bool isDone = true;
  for (const SecretItemRef& item : *items) {
    bool isWritten = false;
    if (!isLocked(item)) isWritten = co_await write(item);
    isDone = isDone && isWritten;
  }
  co_return isDone ? KeychainStatus::success : KeychainStatus::failed;
}

Task<KeychainStatus> addItem(KeychainQuery query, std::string data) {
  // The service itself would not mind a second item of the same attributes.
  const std::optional<SecretItems> existing = co_await findItems(query);
  if (!existing || !existing->empty()) co_return KeychainStatus::failed;
  const GRef<SecretCollection> collection = co_await defaultCollection();
  if (!collection || secret_collection_get_locked(collection.get()) != FALSE)
    co_return KeychainStatus::failed;
  const bool isCreated = co_await createItem(collection, std::move(query), std::move(data));
  co_return isCreated ? KeychainStatus::success : KeychainStatus::failed;
}

}  // namespace

Task<std::optional<KeychainItem>> SecretServiceKeychain::copyMatching(KeychainQuery query,
                                                                      KeychainPrompt prompt) {
  std::optional<SecretItems> items = co_await endingWithin(deadline_, findItems(query));
  if (!items || items->empty()) co_return std::nullopt;
  if (isLocked(items->front())) {
    if (prompt == KeychainPrompt::never) co_return std::nullopt;
    const bool isUnlocked = co_await unlockItem(items->front());
    if (!isUnlocked) co_return std::nullopt;
    items = co_await endingWithin(deadline_, findItems(query));
    if (!items || items->empty()) co_return std::nullopt;
  }
  co_return contentOf(items->front());
}

Task<KeychainStatus> SecretServiceKeychain::update(KeychainQuery query, std::string data) {
  Write replace = [data](SecretItemRef item) { return replaceData(std::move(item), data); };
  return endingWithin(deadline_, writeToAll(std::move(query), std::move(replace)));
}

Task<KeychainStatus> SecretServiceKeychain::add(KeychainQuery query, std::string data) {
  return endingWithin(deadline_, addItem(std::move(query), std::move(data)));
}

Task<KeychainStatus> SecretServiceKeychain::remove(KeychainQuery query) {
  Write erase = [](SecretItemRef item) { return deleteItem(std::move(item)); };
  return endingWithin(deadline_, writeToAll(std::move(query), std::move(erase)));
}

}  // namespace orvane
