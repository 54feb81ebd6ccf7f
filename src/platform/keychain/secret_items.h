#pragma once

#include <optional>
#include <string>
#include <vector>

#include <libsecret/secret.h>

#include "platform/async/task.h"
#include "platform/keychain/glib.h"
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

using SecretCollectionRef = GRef<SecretCollection>;

/// The collection that new items go to, null when the user has none; nothing when there is no
/// service or it fails. Creates nothing.
[[nodiscard]] Task<std::optional<SecretCollectionRef>> defaultCollection();

[[nodiscard]] bool isLocked(const SecretCollectionRef& collection);

/// True when the service has done it. None of these asks the user for anything, so a locked item
/// or collection must be left alone by the caller: the service would want to.
[[nodiscard]] Task<bool> createItem(SecretCollectionRef collection, KeychainQuery query,
                                    std::string data);
[[nodiscard]] Task<bool> replaceData(SecretItemRef item, std::string data);
[[nodiscard]] Task<bool> deleteItem(SecretItemRef item);

// What the service asks the user about, in a dialog of its own. Each ends when the user has
// answered or the service is gone; cancelling ends the waiting and leaves the dialog. Whether
// anything has come of it shows when the items or the collection are looked for again.

/// An item or a collection, for a prompt about it.
template <class T>
GRef<GDBusProxy> asProxy(const GRef<T>& object) {
  return GRef<GDBusProxy>::adopt(g_object_ref(object.get()));
}

/// Items or collections to be unlocked, in one dialog where they belong together.
[[nodiscard]] Task<void> askToUnlock(std::vector<GRef<GDBusProxy>> objects);

/// A new collection for the items of every program, with a password of the user's choice.
[[nodiscard]] Task<void> askForDefaultCollection();

}  // namespace orvane
