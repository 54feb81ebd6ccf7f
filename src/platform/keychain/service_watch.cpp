#include "platform/keychain/service_watch.h"

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

}  // namespace

QString ServiceWatch::name() { return QStringLiteral("org.freedesktop.secrets"); }

Task<bool> ServiceWatch::isPresent() const {
  const bool isThere = co_await isServicePresent(bus_, name());
  if (!isThere) { co_return false; }
  co_return co_await surviveEndOfGlibsBus();
}

}  // namespace orvane
