#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>
#include <libsecret/secret.h>
#include "platform/async/task.h"
#include "platform/keychain/glib.h"
#include "platform/keychain/keychain.h"

namespace orvane {
// The Secret Service's items and collections, a step at a time. Each step takes the service for
// granted; where it fails or is cancelled it gives nothing or false.

using SecretItemRef = GRef<SecretItem>;
using SecretItems = std::vector<SecretItemRef>;
using SecretCollectionRef = GRef<SecretCollection>;

/// Items or collections, for a prompt about them.
using SecretObjects = std::vector<GRef<GDBusProxy>>;

[[nodiscard]] bool isLocked(const SecretItemRef& item);
[[nodiscard]] bool isLocked(const SecretCollectionRef& collection);

/// The first of matching items with its data, and which others hold the same; nothing when it is
/// locked.
[[nodiscard]] std::optional<KeychainItem> contentOf(const SecretItems& items);

// Searching. Asks nobody to unlock anything and creates nothing.

/// Every matching item of every collection, the one to prefer first: those that are not locked,
/// the latest changed before the others. Items that other programs stored are found whatever
/// their schema.
[[nodiscard]] Task<std::optional<SecretItems>> findItems(KeychainQuery query);

/// The locked collections of a service that tells nobody what they hold: those that seem to have no
/// items at all. What is searched for may be in one of them.
[[nodiscard]] Task<std::optional<SecretObjects>> secretiveCollections();

/// The collection that new items go to; null when the user has none.
[[nodiscard]] Task<std::optional<SecretCollectionRef>> defaultCollection();

// Writing. True when the service has done it. None of these asks the user for anything, so a locked
// item or collection must be left alone by the caller: the service would want to.

using SecretItemWrite = std::function<Task<bool>(SecretItemRef)>;

[[nodiscard]] Task<bool> createItem(SecretCollectionRef collection, KeychainQuery query,
                                    Secret data);
[[nodiscard]] Task<bool> replaceData(SecretItemRef item, Secret data);
[[nodiscard]] Task<bool> deleteItem(SecretItemRef item);

// Prompts: the service asks the user, in a dialog of its own. Each ends with the user's answer;
// cancelling ends the waiting and leaves the dialog.

template <class T>
GRef<GDBusProxy> asObject(const GRef<T>& object) {
  return GRef<GDBusProxy>::adopt(g_object_ref(object.get()));
}

/// Unlocks them, in one dialog where they belong together.
[[nodiscard]] Task<bool> unlock(SecretObjects objects);

/// Makes a collection for the items of every program, with a password of the user's choice.
[[nodiscard]] Task<bool> createDefaultCollection();
}  // namespace orvane
