#include "platform/keychain/secret_service_keychain.h"

#include <functional>
#include <utility>
#include <vector>

#include "platform/async/task_scope.h"
#include "platform/async/timer.h"
#include "platform/keychain/secret_items.h"

namespace orvane {

/// Runs `task` and cancels it when it has not ended after `duration`.
template <class T>
Task<T> endingWithin(ExecutorClock::duration duration, Task<T> task) {
  const TaskContext context = co_await currentContext();
  ChildTask<T> child(context, std::move(task));
  const OneShotTimer deadline(*context.executor, duration, [&child] { child.cancel(); });
  T result = co_await child.result();
  co_return result;
}

namespace {

using Write = std::function<Task<bool>(SecretItemRef)>;

/// Writes to every matching item that is not locked.
Task<KeychainStatus> writeToAll(KeychainQuery query, Write write) {
  const std::optional<SecretItems> items = co_await findItems(query);
  if (!items) { co_return KeychainStatus::failed; }
  if (items->empty()) { co_return KeychainStatus::itemNotFound; }

  bool isDone = true;
  for (const SecretItemRef& item : *items) {
    bool isWritten = false;
    if (!isLocked(item)) { isWritten = co_await write(item); }
    isDone = isDone && isWritten;
  }
  co_return isDone ? KeychainStatus::success : KeychainStatus::failed;
}

Task<KeychainStatus> addItem(KeychainQuery query, std::string data) {
  // The service itself would not mind a second item of the same attributes.
  const std::optional<SecretItems> existing = co_await findItems(query);
  if (!existing || !existing->empty()) { co_return KeychainStatus::failed; }
  const std::optional<SecretCollectionRef> collection = co_await defaultCollection();
  const bool isOpen = collection && *collection && !isLocked(*collection);
  if (!isOpen) { co_return KeychainStatus::failed; }
  const bool isCreated = co_await createItem(*collection, std::move(query), std::move(data));
  co_return isCreated ? KeychainStatus::success : KeychainStatus::failed;
}

}  // namespace

Task<std::optional<KeychainItem>> SecretServiceKeychain::copyMatching(KeychainQuery query,
                                                                      KeychainPrompt prompt) {
  std::optional<SecretItems> items = co_await endingWithin(deadline_, findItems(query));
  if (!items || items->empty()) { co_return std::nullopt; }
  if (isLocked(items->front())) {
    if (prompt == KeychainPrompt::never) { co_return std::nullopt; }
    std::vector<GRef<GDBusProxy>> locked{asProxy(items->front())};
    co_await askToUnlock(std::move(locked));
    items = co_await endingWithin(deadline_, findItems(query));
    if (!items || items->empty()) { co_return std::nullopt; }
  }
  co_return contentOf(items->front());
}

Task<void> SecretServiceKeychain::unlockMatching(KeychainQuery query) {
  const std::optional<SecretItems> items =
      co_await endingWithin(deadline_, findItems(std::move(query)));
  std::vector<GRef<GDBusProxy>> locked;
  for (const SecretItemRef& item : items.value_or(SecretItems())) {
    if (isLocked(item)) { locked.push_back(asProxy(item)); }
  }
  if (!locked.empty()) { co_await askToUnlock(std::move(locked)); }
}

Task<void> SecretServiceKeychain::openDefaultCollection() {
  const std::optional<SecretCollectionRef> collection =
      co_await endingWithin(deadline_, defaultCollection());
  if (!collection) { co_return; }
  if (!*collection) {
    co_await askForDefaultCollection();
  } else if (isLocked(*collection)) {
    std::vector<GRef<GDBusProxy>> locked{asProxy(*collection)};
    co_await askToUnlock(std::move(locked));
  }
}

Task<KeychainStatus> SecretServiceKeychain::update(KeychainQuery query, std::string data,
                                                   KeychainPrompt prompt) {
  if (prompt == KeychainPrompt::allowed) { co_await unlockMatching(query); }
  Write replace = [data](SecretItemRef item) { return replaceData(std::move(item), data); };
  co_return co_await endingWithin(deadline_, writeToAll(std::move(query), std::move(replace)));
}

Task<KeychainStatus> SecretServiceKeychain::add(KeychainQuery query, std::string data,
                                                KeychainPrompt prompt) {
  if (prompt == KeychainPrompt::allowed) { co_await openDefaultCollection(); }
  co_return co_await endingWithin(deadline_, addItem(std::move(query), std::move(data)));
}

Task<KeychainStatus> SecretServiceKeychain::remove(KeychainQuery query, KeychainPrompt prompt) {
  if (prompt == KeychainPrompt::allowed) { co_await unlockMatching(query); }
  Write erase = [](SecretItemRef item) { return deleteItem(std::move(item)); };
  co_return co_await endingWithin(deadline_, writeToAll(std::move(query), std::move(erase)));
}

}  // namespace orvane
