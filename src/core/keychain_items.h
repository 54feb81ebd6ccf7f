#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/async/async_mutex.h"
#include "platform/async/task.h"
#include "platform/keychain/keychain.h"

namespace orvane {

/// The first access group that is shared with the companion mining application; nothing when the
/// build has none.
[[nodiscard]] std::optional<std::string> sharedAccessGroup(
    const std::vector<std::string>& accessGroups);

/// The only access to keychain items. Calls are carried out one after the other, in the order they
/// were made, so a read sees every write before it. Every failure is silent.
class KeychainItems {
 public:
  KeychainItems(Keychain& keychain, std::optional<std::string> accessGroup);

  /// The item's text, from whichever group holds it; an item in another group than the shared one
  /// is moved there. Nothing when it is absent, locked or not UTF-8.
  [[nodiscard]] Task<std::optional<std::string>> readItem(std::string service, std::string account,
                                                          KeychainPrompt prompt);

  /// Saves `text` in the shared group; an empty text removes the item from every group.
  [[nodiscard]] Task<void> saveItem(std::string text, std::string service, std::string account);

 private:
  Keychain& keychain_;
  std::optional<std::string> accessGroup_;
  AsyncMutex order_;
};

}  // namespace orvane
