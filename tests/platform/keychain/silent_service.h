#pragma once

#include <cstdlib>

#include <gio/gio.h>

#include "platform/keychain/glib_handles.h"

namespace orvane::test {

inline constexpr auto busClient = static_cast<GDBusConnectionFlags>(
    G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);

/// Owns the Secret Service's name and never answers.
class SilentService {
 public:
  SilentService() {
    bus_ = GRef<GDBusConnection>::adopt(g_dbus_connection_new_for_address_sync(
        std::getenv("DBUS_SESSION_BUS_ADDRESS"), busClient, nullptr, nullptr, nullptr));
    g_dbus_connection_add_filter(bus_.get(), &swallowCalls, nullptr, nullptr);
    askBus("RequestName", g_variant_new("(su)", "org.freedesktop.secrets", 4U));
  }
  ~SilentService() {
    askBus("ReleaseName", g_variant_new("(s)", "org.freedesktop.secrets"));
    g_dbus_connection_close_sync(bus_.get(), nullptr, nullptr);
  }
  SilentService(const SilentService&) = delete;
  SilentService& operator=(const SilentService&) = delete;

 private:
  static GDBusMessage* swallowCalls(GDBusConnection*, GDBusMessage* message, gboolean incoming,
                                    gpointer) {
    const bool isCall = g_dbus_message_get_message_type(message) == G_DBUS_MESSAGE_TYPE_METHOD_CALL;
    if (incoming == FALSE || !isCall) return message;
    g_object_unref(message);
    return nullptr;
  }
  void askBus(const char* method, GVariant* parameters) {
    const GVariantRef answer(g_dbus_connection_call_sync(
        bus_.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
        parameters, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
  }

  GRef<GDBusConnection> bus_;
};

}  // namespace orvane::test
