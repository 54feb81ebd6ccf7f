#include "platform/keychain/service_watch.h"

#include "platform/keychain/service_presence.h"

namespace orvane {

ServiceWatch::ServiceWatch(std::function<void()> whenGone)
    : whenGone_(std::move(whenGone)),
      id_(g_bus_watch_name(G_BUS_TYPE_SESSION, secretServiceName, G_BUS_NAME_WATCHER_FLAGS_NONE,
                           nullptr, &ServiceWatch::serviceGone, this, nullptr)) {}

ServiceWatch::~ServiceWatch() { g_bus_unwatch_name(id_); }

void ServiceWatch::serviceGone(GDBusConnection*, const gchar*, gpointer watch) {
  static_cast<ServiceWatch*>(watch)->whenGone_();
}

}  // namespace orvane
