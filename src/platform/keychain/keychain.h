#pragma once

#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include "platform/async/signal.h"
#include "platform/async/task.h"
#include "platform/secret/secret.h"

namespace orvane {
/// Names generic-password items. Only synchronisable items are ever found, written or deleted.
struct KeychainQuery {
  std::string service;
  std::string account;
  std::optional<std::string> accessGroup = std::nullopt;  ///< nothing: any group
};

/// One item as it was found.
struct KeychainItem {
  Secret data;                             ///< bytes, not necessarily text
  std::optional<std::string> accessGroup;  ///< nothing when the item carries none
  std::vector<std::string> copies = {};    ///< groups that hold the same data under the same names
};

/// Why a read gives no item: there is none, or it cannot be known now (no service or a silent one,
/// a keychain that is locked and stays so, a cancelled call).
enum class KeychainMiss { absent, unknown };

template <class T>
using KeychainReading = std::expected<T, KeychainMiss>;

/// How a write ended. `failed`: refused, locked, without a service, or cancelled.
enum class KeychainStatus { success, itemNotFound, failed };

/// Whether a call may ask the user: to unlock the keychain, or to make one where there is none yet.
enum class KeychainPrompt { never, allowed };

/// The user's keychain. Every call ends by itself within a few seconds, but for one that waits for
/// the user to answer a prompt; with no keychain service it ends at once without effect. A
/// cancelled call counts as failed, as does a write to what is locked and stays so.
class Keychain {
 public:
  virtual ~Keychain() = default;

  /// One matching item with its data.
  [[nodiscard]] virtual Task<KeychainReading<KeychainItem>> copyMatching(KeychainQuery query,
                                                                         KeychainPrompt prompt) = 0;
  /// Replaces the data of the matching item.
  [[nodiscard]] virtual Task<KeychainStatus> update(KeychainQuery query, Secret data,
                                                    KeychainPrompt prompt) = 0;
  /// Creates an item.
  [[nodiscard]] virtual Task<KeychainStatus> add(KeychainQuery query, Secret data,
                                                 KeychainPrompt prompt) = 0;
  /// Removes every matching item.
  [[nodiscard]] virtual Task<KeychainStatus> remove(KeychainQuery query, KeychainPrompt prompt) = 0;

  /// Tells when the keychain has come within reach: what was unknown may be known now.
  [[nodiscard]] virtual Registration observeArrival(std::function<void()> listener) = 0;
};

/// The access groups that the build may use, from the setting that names them separated by
/// semicolons. Blanks around a name do not belong to it; empty names are left out.
[[nodiscard]] std::vector<std::string> accessGroupsFromSetting(std::string_view semicolonSeparated);
}  // namespace orvane
