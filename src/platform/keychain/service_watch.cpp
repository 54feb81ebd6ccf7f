#include "platform/keychain/service_watch.h"

#include <string>

#include "platform/keychain/glib.h"

namespace orvane {

namespace {

using Connection = GRef<GDBusConnection>;

Task<Connection> sessionBus() {
  GlibBegin begin = [](GCancellable* cancellable, GAsyncReadyCallback callback, gpointer data) {
    g_bus_get(G_BUS_TYPE_SESSION, cancellable, callback, data);
  };
  const GlibFinish<Connection> finish = [](GObject*, GAsyncResult* result) {
    return Connection::adopt(g_bus_get_finish(result, nullptr));
  };
  Connection bus = co_await glibCall(std::move(begin), finish);
  // GLib would end the whole program with the bus.
  if (bus) { g_dbus_connection_set_exit_on_close(bus.get(), FALSE); }
  co_return bus;
}

/// Asks the bus itself; null when it does not answer. An empty argument is none.
Task<GVariantRef> askBus(Connection bus, std::string method, std::string argument) {
  GlibBegin begin = [&](GCancellable* cancellable, GAsyncReadyCallback callback, gpointer data) {
    GVariant* const parameters =
        argument.empty() ? nullptr : g_variant_new("(s)", argument.c_str());
    g_dbus_connection_call(bus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus",
                           "org.freedesktop.DBus", method.c_str(), parameters, nullptr,
                           G_DBUS_CALL_FLAGS_NONE, -1, cancellable, callback, data);
  };
  const GlibFinish<GVariantRef> finish = [](GObject* source, GAsyncResult* result) {
    return GVariantRef(g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, nullptr));
  };
  co_return co_await glibCall(std::move(begin), finish);
}

}  // namespace

Task<bool> secretServiceIsPresent() {
  const Connection bus = co_await sessionBus();
  if (!bus) { co_return false; }

  const GVariantRef owner = co_await askBus(bus, "NameHasOwner", secretServiceName);
  gboolean isOwned = FALSE;
  if (owner) { g_variant_get(owner.get(), "(b)", &isOwned); }
  if (isOwned != FALSE) { co_return true; }

  const GVariantRef names = co_await askBus(bus, "ListActivatableNames", "");
  if (!names) { co_return false; }
  const GVariantRef list(g_variant_get_child_value(names.get(), 0));
  const GOwned<char*, g_strfreev> texts(g_variant_dup_strv(list.get(), nullptr));
  co_return g_strv_contains(texts.get(), secretServiceName) != FALSE;
}

ServiceWatch::ServiceWatch(std::function<void()> whenGone)
    : whenGone_(std::move(whenGone)),
      id_(g_bus_watch_name(G_BUS_TYPE_SESSION, secretServiceName, G_BUS_NAME_WATCHER_FLAGS_NONE,
                           nullptr, &ServiceWatch::serviceGone, this, nullptr)) {}

ServiceWatch::~ServiceWatch() { g_bus_unwatch_name(id_); }

void ServiceWatch::serviceGone(GDBusConnection*, const gchar*, gpointer watch) {
  static_cast<ServiceWatch*>(watch)->whenGone_();
}

}  // namespace orvane
