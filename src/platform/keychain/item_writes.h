#pragma once

#include <optional>
#include <string>

#include "platform/keychain/item_search.h"

namespace orvane {

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

}  // namespace orvane
