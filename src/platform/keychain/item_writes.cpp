#include "platform/keychain/item_writes.h"

#include "platform/keychain/glib_call.h"
#include "platform/keychain/service_presence.h"

namespace orvane {
namespace {

using SecretValueRef = GOwned<SecretValue, secret_value_unref>;

// Tells other programs that show keyrings whose items these are; nothing is searched by it.
constexpr auto schemaName = "com.quorvex.Hashwick.GenericPassword";

SecretValueRef secretOf(const std::string& data) {
  const auto size = static_cast<gssize>(data.size());
  const bool isText = g_utf8_validate(data.data(), size, nullptr) != FALSE;
  return SecretValueRef(
      secret_value_new(data.data(), size, isText ? "text/plain" : "application/octet-stream"));
}

}  // namespace

Task<std::optional<SecretCollectionRef>> defaultCollection() {
  const bool isPresent = co_await secretServiceIsPresent();
  if (!isPresent) { co_return std::nullopt; }

  using Found = std::optional<SecretCollectionRef>;
  GlibBegin begin = [](GCancellable* cancellable, GAsyncReadyCallback callback, gpointer data) {
    secret_collection_for_alias(nullptr, SECRET_COLLECTION_DEFAULT, SECRET_COLLECTION_NONE,
                                cancellable, callback, data);
  };
  const GlibFinish<Found> finish = [](GObject*, GAsyncResult* result) -> Found {
    GError* error = nullptr;
    auto collection =
        SecretCollectionRef::adopt(secret_collection_for_alias_finish(result, &error));
    const GOwned<GError, g_error_free> failure(error);
    if (failure) { return std::nullopt; }
    return collection;
  };
  co_return co_await glibCall(std::move(begin), finish);
}

bool isLocked(const SecretCollectionRef& collection) {
  return secret_collection_get_locked(collection.get()) != FALSE;
}

Task<bool> createItem(SecretCollectionRef collection, KeychainQuery query, std::string data) {
  const SecretAttributes attributes = attributesOf(query);
  g_hash_table_insert(attributes.get(), g_strdup("xdg:schema"), g_strdup(schemaName));
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

Task<bool> replaceData(SecretItemRef item, std::string data) {
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

}  // namespace orvane
