#pragma once

#include <optional>
#include <vector>
#include "platform/async/async_mutex.h"
#include "platform/async/executor.h"
#include "platform/async/task_scope.h"
#include "platform/keychain/keychain.h"

namespace orvane {
/// The keychain items that this application shares with the companion mining application.
struct SharedItem {
  const char* service;
  const char* account;
};

/// The pool's API token; either application writes it.
inline constexpr SharedItem poolTokenItem{.service = "com.quorvex.hashwick.pool",
                                          .account = "braiins-api-token"};
/// The address to which the miner pays its solo-mined blocks; only read here.
inline constexpr SharedItem payoutAddressItem{.service = "com.quorvex.hashwick.payout",
                                              .account = "core-mainnet-payout-address"};

/// The first access group that is shared with the companion mining application; nothing when the
/// build has none.
[[nodiscard]] std::optional<std::string> sharedAccessGroup(
    const std::vector<std::string>& accessGroups);

/// The only access to keychain items. Calls are carried out one after the other, in the order they
/// were made, so a read sees every write before it. Every failure is silent.
class KeychainItems {
 public:
  KeychainItems(Executor& executor, Keychain& keychain, std::optional<std::string> accessGroup);

  /// The item's text, from whichever group holds it. Bytes that are not UTF-8 count as absent, and
  /// a cancelled task leaves it unknown. An item in another group than the shared one is moved
  /// there; the move goes on by itself, also when the task is cancelled, and one that was cut off
  /// before its end is completed.
  ///
  /// A call before this one may be waiting for the user; `patience`, where it is given, bounds how
  /// long this one waits for its turn, and then leaves the item unknown.
  [[nodiscard]] Task<KeychainReading<Secret>> readItem(
      std::string service, std::string account, KeychainPrompt prompt,
      std::optional<ExecutorClock::duration> patience = std::nullopt);

  /// Saves `text` in the shared group; an empty text removes the item from every group. It is what
  /// the user wants now, so it may prompt. Returns at once; nothing cancels a save.
  void saveItem(Secret text, std::string service, std::string account);

  /// True when every save and move has ended.
  [[nodiscard]] bool writesFinished() const { return writes_.idle(); }

 private:
  using Turn = std::optional<AsyncMutex::Lock>;
  [[nodiscard]] Task<Turn> turnWithin(ExecutorClock::duration patience);

  /// The groups that the item is to leave; none without a shared one.
  [[nodiscard]] std::vector<std::string> oldGroups(const KeychainItem& item) const;
  [[nodiscard]] bool isShared(const KeychainItem& item) const;
  [[nodiscard]] Task<void> saveInTurn(Secret text, KeychainQuery query);
  /// True when the text is in its place.
  [[nodiscard]] Task<bool> save(Secret text, KeychainQuery query, KeychainPrompt prompt);
  [[nodiscard]] Task<void> moveToSharedGroup(AsyncMutex::Lock turn, KeychainItem item,
                                             KeychainQuery query);

  Keychain& keychain_;
  std::optional<std::string> accessGroup_;
  AsyncMutex order_;
  TaskScope writes_;
};
}  // namespace orvane
