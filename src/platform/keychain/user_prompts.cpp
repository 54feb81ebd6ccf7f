#include "platform/keychain/user_prompts.h"

#include <libsecret/secret.h>

#include "platform/keychain/glib_call.h"
#include "platform/keychain/service_watch.h"

namespace orvane {
namespace {

// No call here is cancellable: a cancelled prompt is dismissed over the bus, which ends
// gnome-keyring 42 by a failed assertion. A dialog that nobody waits for any more is the user's to
// close.

using ListOfObjects = GOwned<GList, g_list_free>;

/// The name that key managers show; the one that other programs give it as well.
constexpr auto collectionLabel = "Default keyring";

Task<bool> unlock(std::vector<GRef<GDBusProxy>> objects) {
  GlibBegin begin = [&](GCancellable*, GAsyncReadyCallback callback, gpointer data) {
    GList* list = nullptr;
    for (const GRef<GDBusProxy>& object : objects) {
      list = g_list_prepend(list, object.get());
    }
    const ListOfObjects owned(list);
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
        GRef<SecretCollection>::adopt(secret_collection_create_finish(result, nullptr));
    return static_cast<bool>(created);
  };
  co_return co_await glibCall(std::move(begin), finish);
}

}  // namespace

Task<void> askToUnlock(std::vector<GRef<GDBusProxy>> objects) {
  Task<bool> question = unlock(std::move(objects));
  co_await endingWithService(std::move(question));
}

Task<void> askForDefaultCollection() {
  Task<bool> question = createDefaultCollection();
  co_await endingWithService(std::move(question));
}

}  // namespace orvane
