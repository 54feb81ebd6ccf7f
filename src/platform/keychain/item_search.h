#pragma once

#include <optional>
#include <vector>

#include <libsecret/secret.h>

#include "platform/async/task.h"
#include "platform/keychain/glib_handles.h"
#include "platform/keychain/keychain.h"

namespace orvane {

using SecretItemRef = GRef<SecretItem>;
using SecretItems = std::vector<SecretItemRef>;

/// Texts by their names, as libsecret takes them.
using SecretAttributes = GOwned<GHashTable, g_hash_table_unref>;

/// The attributes by which an item is found, and with which it is created.
[[nodiscard]] SecretAttributes attributesOf(const KeychainQuery& query);

/// Every matching item of every collection, the one to prefer first: those that are not locked,
/// the latest changed before the others. Items that other programs stored are found whatever
/// their schema. Asks nobody to unlock anything. Nothing when there is no service or it fails.
[[nodiscard]] Task<std::optional<SecretItems>> findItems(KeychainQuery query);

[[nodiscard]] bool isLocked(const SecretItemRef& item);

/// The item with its data; nothing when it is locked.
[[nodiscard]] std::optional<KeychainItem> contentOf(const SecretItemRef& item);

}  // namespace orvane
