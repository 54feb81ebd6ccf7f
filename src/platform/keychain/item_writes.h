#pragma once

#include <string>

#include "platform/keychain/item_search.h"

namespace orvane {

/// The collection that new items go to; null when the user has none. Creates nothing.
[[nodiscard]] Task<GRef<SecretCollection>> defaultCollection();

/// True when the service has done it. None of these asks the user for anything, so a locked item
/// or collection must be left alone by the caller: the service would want to.
[[nodiscard]] Task<bool> createItem(GRef<SecretCollection> collection, KeychainQuery query,
                                    std::string data);
[[nodiscard]] Task<bool> replaceData(SecretItemRef item, std::string data);
[[nodiscard]] Task<bool> deleteItem(SecretItemRef item);

}  // namespace orvane
