#include "platform/keychain/item_search.h"

#include <algorithm>
#include <string_view>
#include <tuple>

#include "platform/keychain/glib_call.h"
#include "platform/keychain/service_presence.h"

namespace orvane {
namespace {

constexpr auto groupAttribute = "access-group";

constexpr auto allWithSecrets =
    static_cast<SecretSearchFlags>(SECRET_SEARCH_ALL | SECRET_SEARCH_LOAD_SECRETS);

void put(GHashTable* table, const char* name, const std::string& value) {
  g_hash_table_insert(table, g_strdup(name), g_strdup(value.c_str()));
}

struct ListOfItems {
  void operator()(GList* list) const { g_list_free_full(list, g_object_unref); }
};

using Found = std::optional<SecretItems>;

Found takeFound(GAsyncResult* result) {
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

SecretAttributes attributesOf(const KeychainQuery& query) {
  SecretAttributes table(g_hash_table_new_full(g_str_hash, g_str_equal, g_free, g_free));
  put(table.get(), "service", query.service);
  put(table.get(), "account", query.account);
  put(table.get(), "synchronizable", "true");
  if (query.accessGroup) { put(table.get(), groupAttribute, *query.accessGroup); }
  return table;
}

Task<Found> findItems(KeychainQuery query) {
  const bool isPresent = co_await secretServiceIsPresent();
  if (!isPresent) { co_return std::nullopt; }

  const SecretAttributes attributes = attributesOf(query);
  GlibBegin begin = [&](GCancellable* cancellable, GAsyncReadyCallback callback, gpointer data) {
    secret_service_search(nullptr, nullptr, attributes.get(), allWithSecrets, cancellable, callback,
                          data);
  };
  const GlibFinish<Found> finish = [](GObject*, GAsyncResult* result) { return takeFound(result); };
  Found items = co_await glibCall(std::move(begin), finish);
  if (items) { std::ranges::sort(*items, isPreferred); }
  co_return items;
}

bool isLocked(const SecretItemRef& item) { return secret_item_get_locked(item.get()) != FALSE; }

std::optional<KeychainItem> contentOf(const SecretItemRef& item) {
  const GOwned<SecretValue, secret_value_unref> value(secret_item_get_secret(item.get()));
  if (!value) { return std::nullopt; }
  gsize size = 0;
  const char* const bytes = secret_value_get(value.get(), &size);
  KeychainItem content{.data = std::string(bytes, size), .accessGroup = std::nullopt};
  const SecretAttributes attributes(secret_item_get_attributes(item.get()));
  if (const auto* group = g_hash_table_lookup(attributes.get(), groupAttribute)) {
    content.accessGroup = static_cast<const char*>(group);
  }
  return content;
}

}  // namespace orvane
