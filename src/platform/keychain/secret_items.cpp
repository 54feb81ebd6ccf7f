#include "platform/keychain/secret_items.h"
#include <algorithm>
#include <ranges>
#include <span>
#include <string_view>
#include <tuple>
#include <utility>

namespace orvane {
namespace {
constexpr auto groupAttribute = "access-group";

/// Tells other programs that show keyrings whose items these are; nothing is searched by it.
constexpr auto schemaName = "com.quorvex.Hashwick.GenericPassword";

/// The name that key managers show; the one that other programs give it as well.
constexpr auto collectionLabel = "Default keyring";

constexpr auto allWithSecrets =
    static_cast<SecretSearchFlags>(SECRET_SEARCH_ALL | SECRET_SEARCH_LOAD_SECRETS);

using FoundItems = std::optional<SecretItems>;
using FoundCollection = std::optional<SecretCollectionRef>;
using SecretValueRef = GOwned<SecretValue, secret_value_unref>;

/// Texts by their names, as libsecret takes them.
using SecretAttributes = GOwned<GHashTable, g_hash_table_unref>;

void put(const SecretAttributes& table, const char* name, const std::string& value) {
  g_hash_table_insert(table.get(), g_strdup(name), g_strdup(value.c_str()));
}

/// The attributes by which an item is found, and with which it is created.
SecretAttributes attributesOf(const KeychainQuery& query) {
  SecretAttributes table(g_hash_table_new_full(g_str_hash, g_str_equal, g_free, g_free));
  put(table, "service", query.service);
  put(table, "account", query.account);
  put(table, "synchronizable", "true");
  if (query.accessGroup) { put(table, groupAttribute, *query.accessGroup); }
  return table;
}

SecretValueRef secretOf(const Secret& secret) {
  const std::span<const char> data(secret.view());
  const auto size = static_cast<gssize>(data.size());
  const bool isText = g_utf8_validate(data.data(), size, nullptr) != FALSE;
  return SecretValueRef(
      secret_value_new(data.data(), size, isText ? "text/plain" : "application/octet-stream"));
}

struct ListOfItems {
  void operator()(GList* list) const { g_list_free_full(list, g_object_unref); }
};

FoundItems takeFound(GAsyncResult* result) {
  GError* error = nullptr;
  const std::unique_ptr<GList, ListOfItems> list(
      secret_service_search_finish(nullptr, result, &error));
  const GOwned<GError, g_error_free> failure(error);
  if (failure) { return std::nullopt; }
  SecretItems items;
  for (const GList* entry = list.get(); entry != nullptr; entry = entry->next) {
    items.push_back(SecretItemRef::adopt(g_object_ref(entry->data)));
  }
  return items;
}

FoundCollection takeCollection(GAsyncResult* result) {
  GError* error = nullptr;
  auto collection = SecretCollectionRef::adopt(secret_collection_for_alias_finish(result, &error));
  const GOwned<GError, g_error_free> failure(error);
  return failure ? std::nullopt : FoundCollection(std::move(collection));
}

bool listsNoItems(GDBusProxy* collection) {
  const GVariantRef items(g_dbus_proxy_get_cached_property(collection, "Items"));
  return !items || g_variant_n_children(items.get()) == 0;
}

std::optional<SecretObjects> takeSecretive(GAsyncResult* result) {
  const auto service = GRef<SecretService>::adopt(secret_service_open_finish(result, nullptr));
  if (!service) { return std::nullopt; }
  const std::unique_ptr<GList, ListOfItems> list(secret_service_get_collections(service.get()));
  SecretObjects secretive;
  for (const GList* entry = list.get(); entry != nullptr; entry = entry->next) {
    const auto collection = GRef<GDBusProxy>::adopt(g_object_ref(entry->data));
    const bool locked = secret_collection_get_locked(SECRET_COLLECTION(entry->data)) != FALSE;
    if (locked && listsNoItems(collection.get())) { secretive.push_back(collection); }
  }
  return secretive;
}

std::string_view pathOf(const SecretItemRef& item) {
  return g_dbus_proxy_get_object_path(G_DBUS_PROXY(item.get()));
}

// The path decides between items that changed within the same second.
bool isPreferred(const SecretItemRef& left, const SecretItemRef& right) {
  const auto leftChange = secret_item_get_modified(left.get());
  const auto rightChange = secret_item_get_modified(right.get());
  return std::tuple(isLocked(left), rightChange, pathOf(left)) <
         std::tuple(isLocked(right), leftChange, pathOf(right));
}
}  // namespace

bool isLocked(const SecretItemRef& item) { return secret_item_get_locked(item.get()) != FALSE; }

bool isLocked(const SecretCollectionRef& collection) {
  return secret_collection_get_locked(collection.get()) != FALSE;
}

namespace {
std::optional<KeychainItem> contentOf(const SecretItemRef& item) {
  const SecretValueRef value(secret_item_get_secret(item.get()));
  if (!value) { return std::nullopt; }
  gsize size = 0;
  const char* const bytes = secret_value_get(value.get(), &size);
  KeychainItem content{.data = std::string_view(bytes, size), .accessGroup = std::nullopt};
  const SecretAttributes attributes(secret_item_get_attributes(item.get()));
  if (const auto* group = g_hash_table_lookup(attributes.get(), groupAttribute)) {
    content.accessGroup = static_cast<const char*>(group);
  }
  return content;
}
}  // namespace

std::optional<KeychainItem> contentOf(const SecretItems& items) {
  std::optional<KeychainItem> first = contentOf(items.front());
  if (!first) { return first; }
  for (const SecretItemRef& other : items | std::views::drop(1)) {
    std::optional<KeychainItem> copy = contentOf(other);
    const bool isSame = copy && copy->accessGroup && copy->data == first->data;
    if (isSame) { first->copies.push_back(*std::move(copy->accessGroup)); }
  }
  return first;
}

Task<FoundItems> findItems(KeychainQuery query) {
  const SecretAttributes attributes = attributesOf(query);
  GlibBegin begin = [&](GCancellable* cancellable, GAsyncReadyCallback callback, gpointer data) {
    secret_service_search(nullptr, nullptr, attributes.get(), allWithSecrets, cancellable, callback,
                          data);
  };
  const GlibFinish<FoundItems> finish = [](GObject*, GAsyncResult* result) {
    return takeFound(result);
  };
  FoundItems items = co_await glibCall(std::move(begin), finish);
  if (items) { std::ranges::sort(*items, isPreferred); }
  co_return items;
}

// A service object of its own each time: libsecret's shared one learns of a lock by a signal that
// not every service sends.
Task<std::optional<SecretObjects>> secretiveCollections() {
  GlibBegin begin = [](GCancellable* cancellable, GAsyncReadyCallback callback, gpointer data) {
    secret_service_open(SECRET_TYPE_SERVICE, nullptr, SECRET_SERVICE_LOAD_COLLECTIONS, cancellable,
                        callback, data);
  };
  const GlibFinish<std::optional<SecretObjects>> finish = [](GObject*, GAsyncResult* result) {
    return takeSecretive(result);
  };
  co_return co_await glibCall(std::move(begin), finish);
}

Task<FoundCollection> defaultCollection() {
  GlibBegin begin = [](GCancellable* cancellable, GAsyncReadyCallback callback, gpointer data) {
    secret_collection_for_alias(nullptr, SECRET_COLLECTION_DEFAULT, SECRET_COLLECTION_NONE,
                                cancellable, callback, data);
  };
  const GlibFinish<FoundCollection> finish = [](GObject*, GAsyncResult* result) {
    return takeCollection(result);
  };
  co_return co_await glibCall(std::move(begin), finish);
}

Task<bool> createItem(SecretCollectionRef collection, KeychainQuery query, Secret data) {
  const SecretAttributes attributes = attributesOf(query);
  put(attributes, "xdg:schema", schemaName);
  const SecretValueRef value = secretOf(data);
  const std::string label = "Orvane: " + query.service;
  GlibBegin begin = [&](GCancellable* cancellable, GAsyncReadyCallback callback, gpointer user) {
    secret_item_create(collection.get(), nullptr, attributes.get(), label.c_str(), value.get(),
                       SECRET_ITEM_CREATE_NONE, cancellable, callback, user);
  };
  const GlibFinish<bool> finish = [](GObject*, GAsyncResult* result) {
    const auto item = SecretItemRef::adopt(secret_item_create_finish(result, nullptr));
    return static_cast<bool>(item);
  };
  co_return co_await glibCall(std::move(begin), finish);
}

Task<bool> replaceData(SecretItemRef item, Secret data) {
  const SecretValueRef value = secretOf(data);
  GlibBegin begin = [&](GCancellable* cancellable, GAsyncReadyCallback callback, gpointer user) {
    secret_item_set_secret(item.get(), value.get(), cancellable, callback, user);
  };
  const GlibFinish<bool> finish = [](GObject* source, GAsyncResult* result) {
    return secret_item_set_secret_finish(SECRET_ITEM(source), result, nullptr) != FALSE;
  };
  co_return co_await glibCall(std::move(begin), finish);
}

Task<bool> deleteItem(SecretItemRef item) {
  GlibBegin begin = [&](GCancellable* cancellable, GAsyncReadyCallback callback, gpointer user) {
    secret_item_delete(item.get(), cancellable, callback, user);
  };
  const GlibFinish<bool> finish = [](GObject* source, GAsyncResult* result) {
    return secret_item_delete_finish(SECRET_ITEM(source), result, nullptr) != FALSE;
  };
  co_return co_await glibCall(std::move(begin), finish);
}

// No prompt is cancellable: a cancelled one is dismissed over the bus, which ends gnome-keyring 42
// by a failed assertion. A dialog that nobody waits for any more is the user's to close.

Task<bool> unlock(SecretObjects objects) {
  GlibBegin begin = [&](GCancellable*, GAsyncReadyCallback callback, gpointer data) {
    GList* list = nullptr;
    for (const GRef<GDBusProxy>& object : objects) {
      list = g_list_prepend(list, object.get());
    }
    const GOwned<GList, g_list_free> owned(list);
    secret_service_unlock(nullptr, list, nullptr, callback, data);
  };
  const GlibFinish<bool> finish = [](GObject*, GAsyncResult* result) {
    return secret_service_unlock_finish(nullptr, result, nullptr, nullptr) > 0;
  };
  co_return co_await glibCall(std::move(begin), finish);
}

Task<bool> createDefaultCollection() {
  GlibBegin begin = [](GCancellable*, GAsyncReadyCallback callback, gpointer data) {
    secret_collection_create(nullptr, collectionLabel, SECRET_COLLECTION_DEFAULT,
                             SECRET_COLLECTION_CREATE_NONE, nullptr, callback, data);
  };
  const GlibFinish<bool> finish = [](GObject*, GAsyncResult* result) {
    const auto created =
        SecretCollectionRef::adopt(secret_collection_create_finish(result, nullptr));
    return static_cast<bool>(created);
  };
  co_return co_await glibCall(std::move(begin), finish);
}
}  // namespace orvane
