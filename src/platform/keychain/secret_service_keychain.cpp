#include "platform/keychain/secret_service_keychain.h"
#include "platform/keychain/glib.h"

namespace orvane {
namespace {
/// libsecret speaks over GLib's own connection, with which GLib would end the whole program.
Task<bool> surviveEndOfGlibsBus() {
  GlibBegin begin = [](GCancellable* cancellable, GAsyncReadyCallback callback, gpointer data) {
    g_bus_get(G_BUS_TYPE_SESSION, cancellable, callback, data);
  };
  const GlibFinish<bool> finish = [](GObject*, GAsyncResult* result) {
    const auto bus = GRef<GDBusConnection>::adopt(g_bus_get_finish(result, nullptr));
    if (bus) { g_dbus_connection_set_exit_on_close(bus.get(), FALSE); }
    return static_cast<bool>(bus);
  };
  co_return co_await glibCall(std::move(begin), finish);
}

/// Writes to every matching item that is not locked.
Task<KeychainStatus> writeToAll(KeychainQuery query, SecretItemWrite write) {
  const std::optional<SecretItems> items = co_await findItems(std::move(query));
  if (!items) { co_return KeychainStatus::failed; }
  if (items->empty()) {
    const std::optional<SecretObjects> secretive = co_await secretiveCollections();
    const bool isKnown = secretive && secretive->empty();
    co_return isKnown ? KeychainStatus::itemNotFound : KeychainStatus::failed;
  }
  bool isDone = true;
  for (const SecretItemRef& item : *items) {
    bool isWritten = false;
    if (!isLocked(item)) { isWritten = co_await write(item); }
    isDone = isDone && isWritten;
  }
  co_return isDone ? KeychainStatus::success : KeychainStatus::failed;
}

Task<KeychainStatus> addItem(KeychainQuery query, Secret data) {
  // The service itself would not mind a second item of the same attributes.
  const std::optional<SecretItems> existing = co_await findItems(query);
  if (!existing || !existing->empty()) { co_return KeychainStatus::failed; }
  const std::optional<SecretCollectionRef> collection = co_await defaultCollection();
  const bool isOpen = collection && *collection && !isLocked(*collection);
  if (!isOpen) { co_return KeychainStatus::failed; }
  const bool isCreated = co_await createItem(*collection, std::move(query), std::move(data));
  co_return isCreated ? KeychainStatus::success : KeychainStatus::failed;
}
}  // namespace

SecretServiceKeychain::SecretServiceKeychain(SessionBus& bus, ExecutorClock::duration deadline)
    : service_(bus, deadline), owner_(bus, ServiceWatch::name(), [this](bool isOwned) {
        if (isOwned) { arrived_.send(); }
      }) {}

QString ServiceWatch::name() { return QStringLiteral("org.freedesktop.secrets"); }

Task<bool> ServiceWatch::isPresent() const {
  const bool isThere = co_await isServicePresent(bus_, name());
  if (!isThere) { co_return false; }
  co_return co_await surviveEndOfGlibsBus();
}

Task<std::optional<SecretItems>> SecretServiceKeychain::find(KeychainQuery query) {
  Task<std::optional<SecretItems>> search = findItems(std::move(query));
  return service_.answerTo(std::move(search), std::optional<SecretItems>());
}

Task<std::optional<SecretObjects>> SecretServiceKeychain::findSecretive() {
  return service_.answerTo(secretiveCollections(), std::optional<SecretObjects>());
}

// Whether anything has come of a prompt shows when what it was about is looked for again.
Task<void> SecretServiceKeychain::askToUnlock(SecretObjects locked) {
  Task<bool> prompt = unlock(std::move(locked));
  co_await service_.answerOfUser(std::move(prompt));
}

Task<void> SecretServiceKeychain::unlockMatching(KeychainQuery query) {
  const std::optional<SecretItems> items = co_await find(std::move(query));
  if (!items) { co_return; }
  if (items->empty()) { co_await unlockSecretive(); }
  SecretObjects locked;
  for (const SecretItemRef& item : *items) {
    if (isLocked(item)) { locked.push_back(asObject(item)); }
  }
  if (!locked.empty()) { co_await askToUnlock(std::move(locked)); }
}

Task<void> SecretServiceKeychain::unlockSecretive() {
  const std::optional<SecretObjects> secretive = co_await findSecretive();
  if (secretive && !secretive->empty()) { co_await askToUnlock(*secretive); }
}

Task<void> SecretServiceKeychain::openDefaultCollection() {
  using Found = std::optional<SecretCollectionRef>;
  Task<Found> search = defaultCollection();
  const Found collection = co_await service_.answerTo(std::move(search), Found());
  if (!collection) { co_return; }
  if (!*collection) {
    Task<bool> prompt = createDefaultCollection();
    co_await service_.answerOfUser(std::move(prompt));
  } else if (isLocked(*collection)) {
    SecretObjects locked{asObject(*collection)};
    co_await askToUnlock(std::move(locked));
  }
}

Task<KeychainReading<KeychainItem>> SecretServiceKeychain::copyMatching(KeychainQuery query,
                                                                        KeychainPrompt prompt) {
  std::optional<SecretItems> items = co_await find(query);
  const bool mayAsk = items && prompt == KeychainPrompt::allowed;
  if (mayAsk && items->empty()) {
    co_await unlockSecretive();
    items = co_await find(std::move(query));
  } else if (mayAsk && isLocked(items->front())) {
    SecretObjects locked{asObject(items->front())};
    co_await askToUnlock(std::move(locked));
    items = co_await find(std::move(query));
  }
  if (!items) { co_return std::unexpected(KeychainMiss::unknown); }
  if (items->empty()) {
    const std::optional<SecretObjects> secretive = co_await findSecretive();
    const bool isKnown = secretive && secretive->empty();
    co_return std::unexpected(isKnown ? KeychainMiss::absent : KeychainMiss::unknown);
  }
  std::optional<KeychainItem> item = contentOf(*items);
  if (!item) { co_return std::unexpected(KeychainMiss::unknown); }
  co_return *std::move(item);
}

Task<KeychainStatus> SecretServiceKeychain::update(KeychainQuery query, Secret data,
                                                   KeychainPrompt prompt) {
  if (prompt == KeychainPrompt::allowed) { co_await unlockMatching(query); }
  SecretItemWrite replace = [data](SecretItemRef item) {
    return replaceData(std::move(item), data);
  };
  Task<KeychainStatus> writing = writeToAll(std::move(query), std::move(replace));
  co_return co_await service_.answerTo(std::move(writing), KeychainStatus::failed);
}

Task<KeychainStatus> SecretServiceKeychain::add(KeychainQuery query, Secret data,
                                                KeychainPrompt prompt) {
  if (prompt == KeychainPrompt::allowed) { co_await openDefaultCollection(); }
  Task<KeychainStatus> adding = addItem(std::move(query), std::move(data));
  co_return co_await service_.answerTo(std::move(adding), KeychainStatus::failed);
}

Task<KeychainStatus> SecretServiceKeychain::remove(KeychainQuery query, KeychainPrompt prompt) {
  if (prompt == KeychainPrompt::allowed) { co_await unlockMatching(query); }
  SecretItemWrite erase = [](SecretItemRef item) { return deleteItem(std::move(item)); };
  Task<KeychainStatus> writing = writeToAll(std::move(query), std::move(erase));
  co_return co_await service_.answerTo(std::move(writing), KeychainStatus::failed);
}
}  // namespace orvane
