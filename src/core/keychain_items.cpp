#include "core/keychain_items.h"
#include <algorithm>
#include <utility>
#include "platform/async/timer.h"
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

Task<KeychainReading<Secret>> KeychainItems::readItem(
    std::string service, std::string account, KeychainPrompt prompt,
    std::optional<ExecutorClock::duration> patience) {
  Task<Turn> waiting = patience ? turnWithin(*patience) : order_.lock();
  Turn turn = co_await std::move(waiting);
  if (!turn) { co_return std::unexpected(KeychainMiss::unknown); }

  const KeychainQuery query = baseQuery(std::move(service), std::move(account));
  const KeychainReading<KeychainItem> item = co_await keychain_.copyMatching(query, prompt);
  if (!item) { co_return std::unexpected(item.error()); }
  if (!isValidUtf8(item->data)) { co_return std::unexpected(KeychainMiss::absent); }
  if (!oldGroups(*item).empty()) {
    // The next call waits for the move, which therefore belongs to no task that may be cancelled.
    writes_.spawn(moveToSharedGroup(std::move(*turn), *item, query));
  }
  co_return item->data;
}

Task<KeychainItems::Turn> KeychainItems::turnWithin(ExecutorClock::duration patience) {
  const TaskContext context = co_await currentContext();
  ChildTask<Turn> waiting(context, order_.lock());
  const OneShotTimer end(*context.executor, patience, [&waiting] { waiting.cancel(); });
  Turn turn = co_await waiting.result();
  co_return turn;
}

std::vector<std::string> KeychainItems::oldGroups(const KeychainItem& item) const {
  std::vector<std::string> groups;
  if (!accessGroup_) { return groups; }
  if (item.accessGroup) { groups.push_back(*item.accessGroup); }
  groups.insert(groups.end(), item.copies.begin(), item.copies.end());
  std::erase(groups, *accessGroup_);
  return groups;
}

bool KeychainItems::isShared(const KeychainItem& item) const {
  return item.accessGroup == accessGroup_ ||
         std::ranges::find(item.copies, accessGroup_) != item.copies.end();
}

// In this order there is no moment in which the item is nowhere.
Task<void> KeychainItems::moveToSharedGroup([[maybe_unused]] AsyncMutex::Lock turn,
                                            KeychainItem item, KeychainQuery query) {
  bool isKept = isShared(item);
  if (!isKept) { isKept = co_await save(item.data, query, KeychainPrompt::never); }
  if (!isKept) { co_return; }
  for (std::string& group : oldGroups(item)) {
    KeychainQuery oldPlace = query;
    oldPlace.accessGroup = std::move(group);
    co_await keychain_.remove(std::move(oldPlace), KeychainPrompt::never);
  }
}

void KeychainItems::saveItem(Secret text, std::string service, std::string account) {
  writes_.spawn(saveInTurn(std::move(text), baseQuery(std::move(service), std::move(account))));
}

Task<void> KeychainItems::saveInTurn(Secret text, KeychainQuery query) {
  const std::optional<AsyncMutex::Lock> turn = co_await order_.lock();
  if (turn) { (void)co_await save(std::move(text), std::move(query), KeychainPrompt::allowed); }
}

Task<bool> KeychainItems::save(Secret text, KeychainQuery query, KeychainPrompt prompt) {
  if (text.empty()) {
    const KeychainStatus removed = co_await keychain_.remove(std::move(query), prompt);
    co_return removed == KeychainStatus::success;
  }
  query.accessGroup = accessGroup_;
  KeychainStatus status = co_await keychain_.update(query, text, prompt);
  if (status == KeychainStatus::itemNotFound) {
    status = co_await keychain_.add(std::move(query), std::move(text), prompt);
  }
  co_return status == KeychainStatus::success;
}
}  // namespace orvane
